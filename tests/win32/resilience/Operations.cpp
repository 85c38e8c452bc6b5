#include "Operations.h"

#include "ui/ControlHost.h"

namespace blattwart::test {

namespace {

Operation command(const char* name, const wchar_t* node, const wchar_t* item) {
    return {name, node, {}, [item](ProgramOnHost& program) { program.form().item(item).click(); }};
}

template <class Control>
void endEdit(Control& control, std::wstring text) {
    control.userEndsLabelEdit(&text);
}

void click(ProgramOnHost& program, const wchar_t* path) {
    program.tree().userClicks(*program.node(path));
}

void forAllPlans(ProgramOnHost& program, Button frmPlanliste::*button) {
    program.inPlanList([button](frmPlanliste& list) {
        std::vector<ListItem*> rows;
        for (int row = 0; row < list.lvPlan.count(); ++row) rows.push_back(&list.lvPlan.row(row));
        list.lvPlan.userSelects(rows, nullptr);
        (list.*button).userClicks();
    });
}

}  // namespace

Operation plotting() {
    return {"plot to PDF files", L"Plan.dwg/Blatt 2", {}, [](ProgramOnHost& program) {
                forAllPlans(program, &frmPlanliste::cmdPdf);
            }};
}

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all{
        command("refresh", L"Plan.dwg/Blatt 1", L"mnuViewRefresh"),
        {"click on the drawings", L"B", {}, [](ProgramOnHost& program) { click(program, L"A"); }},
        {"click on a drawing", L"B", {}, [](ProgramOnHost& program) { click(program, L"Plan.dwg"); }},
        {"click on a layout", L"B", {}, [](ProgramOnHost& program) { click(program, L"Plan.dwg/Schnitt"); }},
        command("activate", L"Haus.dwg/Blatt 1", L"mnuActive"),
        command("open", L"Plan A3.dwt", L"mnuTemplateOpen"),
        command("save", L"Plan.dwg", L"mnuSave"),
        command("close", L"Haus.dwg", L"mnuFileClose"),
        command("new from template", L"Plan A3.dwt", L"mnuTemplate"),
        command("insert layout", L"Plan A3.dwt", L"popInsert"),
        {"copy layout",
         L"Plan.dwg/Blatt 2",
         {},
         [](ProgramOnHost& program) {
             program.confirmDialog([&] { program.form().item(L"mnuEditCopy").click(); });
         }},
        {"rename in the tree",
         L"Plan.dwg/Blatt 2",
         {},
         [](ProgramOnHost& program) {
             program.form().item(L"mnuFileRename").click();
             endEdit(program.tree(), L"Dach");
         }},
        {"rename in the list",
         L"Plan.dwg",
         {L"Blatt 2"},
         [](ProgramOnHost& program) {
             program.form().item(L"mnuFileRename").click();
             endEdit(program.list(), L"Dach");
         }},
        command("delete layout", L"Plan.dwg/Blatt 2", L"mnuFileDelete"),
        {"template from layout",
         L"Plan.dwg/Schnitt",
         {},
         [](ProgramOnHost& program) {
             program.form().item(L"mnuLayoutImport").click();
             endEdit(program.tree(), L"Neu");
         }},
        {"plan list",
         L"Plan.dwg/Blatt 2",
         {},
         [](ProgramOnHost& program) {
             program.inPlanList([](frmPlanliste& list) { list.cmdClose.userClicks(); });
         }},
        {"rename in the plan list",
         L"Plan.dwg/Blatt 2",
         {},
         [](ProgramOnHost& program) { forAllPlans(program, &frmPlanliste::cmdUmbenennen); }},
        plotting(),
    };
    return all;
}

std::span<const Operation> operations(std::size_t part) {
    const std::span<const Operation> all = operations();
    const std::size_t begin = part * all.size() / operationParts;
    return all.subspan(begin, (part + 1) * all.size() / operationParts - begin);
}

void prepare(ProgramOnHost& program, const Operation& operation) {
    program.act([&] { program.tree().userClicks(*program.node(operation.node)); });
    program.selectInList(operation.items);
    pump();
    program.world.messages.clear();
    program.world.messages.answer(MessageAnswer::yes);
    program.calls.clear();
    program.busy.clear();
    program.asked = 0;
}

}  // namespace blattwart::test
