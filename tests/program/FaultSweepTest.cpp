#include "Operations.h"

#include <algorithm>

namespace blattwart::test {
namespace {

/// One operation, from its command to the user's last answer.
struct Operation {
    const wchar_t* name;
    const wchar_t* node;
    std::vector<std::wstring> items;  // selected in the list
    std::function<void(frmMain&, basMain&)> run;
    std::wstring mayGo;  // the only layout of Plan.dwg, or drawing, that may be missing afterwards
};

Operation command(const wchar_t* node, std::vector<std::wstring> items, const wchar_t* item,
                  std::wstring mayGo = {}) {
    return {item, node, std::move(items), [item](frmMain& form, basMain&) { form.item(item).click(); },
            std::move(mayGo)};
}

std::vector<Operation> operations() {
    const auto endEdit = [](auto& control, std::wstring text) { control.userEndsLabelEdit(&text); };
    std::vector<Operation> all{
        command(L"Z1", {}, L"mnuDrawing"),
        command(L"L2", {}, L"mnuActive"),
        command(L"L5", {}, L"mnuActive"),
        command(L"D7", {}, L"mnuTemplateOpen"),
        command(L"Z1", {}, L"mnuFileClose", L"Haus.dwg"),
        command(L"Z1", {}, L"mnuSave"),
        command(L"Z1", {}, L"mnuSaveAS"),
        command(L"Z1", {}, L"mnuModel"),
        command(L"D7", {}, L"popInsert"),
        command(L"D7", {}, L"mnuTemplate"),
        command(L"D7", {}, L"popDCD"),
        command(L"A", {L"Z1"}, L"mnuCreate"),
        command(L"L5", {}, L"mnuFileDelete", L"Blatt 2"),
        command(L"Z3", {L"L5"}, L"popDel", L"Blatt 2"),
    };
    all.push_back({L"create template",
                   L"L5",
                   {},
                   [=](frmMain& form, basMain&) {
                       form.item(L"mnuLayoutImport").click();
                       endEdit(form.tvTreeView, L"Neu");
                   },
                   L""});
    all.push_back({L"rename in the tree",
                   L"L5",
                   {},
                   [=](frmMain& form, basMain&) {
                       form.item(L"mnuFileRename").click();
                       endEdit(form.tvTreeView, L"Neu");
                   },
                   L"Blatt 2"});
    all.push_back({L"rename in the list",
                   L"Z3",
                   {L"L5"},
                   [=](frmMain& form, basMain&) {
                       form.item(L"mnuFileRename").click();
                       endEdit(form.lvListView, L"Neu");
                   },
                   L"Blatt 2"});
    all.push_back({L"rename several",
                   L"Z3",
                   {L"L5"},
                   [](frmMain&, basMain& main) {
                       std::int16_t counter = 1;
                       main.layouts->RenameSelectedLayouts(L"Neu", counter);
                   },
                   L"Blatt 2"});
    all.push_back({L"copy",
                   L"L5",
                   {},
                   [](frmMain&, basMain& main) {
                       std::wstring name = L"Neu";
                       main.tarvix.CopyLayouts(L"Blatt 2", name, 2);
                   },
                   L""});
    all.push_back({L"drop a file",
                   L"A",
                   {},
                   [](frmMain& form, basMain&) {
                       form.tvTreeView.setDropHighlight(&form.tvTreeView.node(L"A"));
                       form.tvTreeView.events.filesDropped({L"C:\\Vorlagen\\Plan A3.dwt"});
                   },
                   L""});
    return all;
}

class FaultSweep : public Operations {
  protected:
    void prepare(const Operation& operation) {
        restart();
        std::filesystem::remove(host().disk().realPath(L"C:\\Vorlagen\\Neu.dwt"));
        document(L"Haus.dwg")->setModified();
        click(operation.node);
        selectInList(operation.items);
        world.messages.answer(MessageAnswer::yes);
        world.messages.answer(MessageAnswer::yes);
        calls.clear();
    }

    /// Numbers, from 1, of the operation's calls to the host: all, or those that do more than read.
    std::vector<std::size_t> callsOf(const Operation& operation, bool readings) {
        prepare(operation);
        operation.run(form(), *main);
        std::vector<std::size_t> numbers;
        std::size_t number = 0;
        for (const demo::RecordedCall& call : calls.calls()) {
            ++number;
            const bool reading = call.kind == demo::RecordedCall::Kind::get;
            if (isOfHost(call) && (readings || !reading)) numbers.push_back(number);
        }
        return numbers;
    }

    /// The tree under "A" as the host has it, whatever the order of layouts.
    void expectTheHostsTruth() {
        std::vector<std::wstring> shown;
        for (const TreeNode* drawing : tree().node(L"A").children())
            for (const TreeNode* layout : drawing->children())
                shown.push_back(drawing->text() + L"/" + layout->text());
        std::vector<std::wstring> open;
        for (const auto& each : host().documents())
            for (const demo::Layout* layout : each->drawing().layouts())
                if (!layout->isModel()) open.push_back(each->name() + L"/" + layout->name());
        std::ranges::sort(shown);
        std::ranges::sort(open);
        EXPECT_EQ(shown, open);
        EXPECT_EQ(tree().node(L"B").children().size(), 2U);
        EXPECT_EQ(tree().find(L"D0"), nullptr);
    }

    void expectNothingLost(const std::wstring& mayGo) {
        for (const wchar_t* name : {L"Blatt 1", L"Blatt 2", L"Schnitt"})
            EXPECT_TRUE(mayGo == name || document(L"Plan.dwg")->findLayout(name));
        EXPECT_TRUE(mayGo == L"Haus.dwg" || layoutsOf(L"Haus.dwg").starts_with(L"Blatt 1"));
    }

    void expectWholeAfterFault(const Operation& operation, bool gone) {
        calls.heal();
        world.messages.clear();
        if (host().dialog()) host().cancelDialog();
        if (!gone) {
            EXPECT_EQ(host().filedia(), 1);
            EXPECT_TRUE(activeDocumentIsRight() || operation.mayGo == L"Haus.dwg");
        }
        ASSERT_NE(tree().selected(), nullptr);
        EXPECT_EQ(tree().editedNode(), nullptr);
        leaveAndReturn();
        EXPECT_TRUE(world.messages.shown.empty());
        EXPECT_EQ(host().filedia(), 1);
        EXPECT_TRUE(activeDocumentIsRight());
        expectTheHostsTruth();
        expectNothingLost(operation.mayGo);
    }
};

TEST_F(FaultSweep, EveryCallOfEveryOperationFailsOnce) {
    const RuntimeError error(static_cast<std::int32_t>(0x80020009), L"");
    for (const Operation& operation : operations()) {
        const std::vector<std::size_t> numbers = callsOf(operation, true);
        EXPECT_GT(numbers.size(), 0U) << testing::PrintToString(std::wstring(operation.name));
        for (const std::size_t number : numbers) {
            SCOPED_TRACE(testing::PrintToString(std::wstring(operation.name)) + ", call " +
                         std::to_string(number));
            prepare(operation);
            calls.failAt(number, error);
            operation.run(form(), *main);
            expectWholeAfterFault(operation, false);
            if (HasFailure()) return;
        }
    }
}

TEST_F(FaultSweep, TheHostGoesInTheMiddleOfEveryOperation) {
    for (const Operation& operation : operations()) {
        for (const std::size_t number : callsOf(operation, false)) {
            SCOPED_TRACE(testing::PrintToString(std::wstring(operation.name)) + ", from call " +
                         std::to_string(number));
            prepare(operation);
            calls.goneFrom(number);
            operation.run(form(), *main);
            expectWholeAfterFault(operation, true);
            if (HasFailure()) return;
        }
    }
}

}  // namespace
}  // namespace blattwart::test
