#include "Operations.h"

#include <gtest/gtest.h>

#include <array>

#include "support/User.h"
#include "ui/ControlHost.h"

namespace blattwart::test {

std::span<const Operation> operations() {
    static const std::array all{Operation{L"L5", L"mnuViewRefresh"},
                                Operation{L"B", L"click A"},
                                Operation{L"B", L"click Z3"},
                                Operation{L"B", L"click L5"},
                                Operation{L"L2", L"mnuActive"},
                                Operation{L"D7", L"mnuTemplateOpen"},
                                Operation{L"Z3", L"mnuSave"},
                                Operation{L"Z1", L"mnuFileClose"},
                                Operation{L"D7", L"mnuTemplate"},
                                Operation{L"D7", L"popInsert"},
                                Operation{L"L5", L"mnuEditCopy"},
                                Operation{L"L5", L"mnuFileRename"},
                                Operation{L"Z3", L"mnuFileRename"},
                                Operation{L"L5", L"mnuFileDelete"},
                                Operation{L"L5", L"mnuLayoutImport"},
                                Operation{L"L5", L"mnuPlanList"},
                                Operation{L"L5", L"mnuPlanList", &frmPlanliste::cmdUmbenennen},
                                Operation{L"L5", L"mnuPlanList", &frmPlanliste::cmdPdf}};
    return all;
}

const Operation& refreshing() {
    return operations().front();
}

const Operation& plotting() {
    return operations().back();
}

std::span<const Operation> operations(std::size_t part) {
    const std::span<const Operation> all = operations();
    const std::size_t begin = part * all.size() / operationParts;
    return all.subspan(begin, (part + 1) * all.size() / operationParts - begin);
}

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << testing::PrintToString(operation.action) << " at " << testing::PrintToString(operation.place);
}

void prepare(ProgramOnHost& program, const Operation& operation) {
    program.act([&] { go(program.form(), placeAt(operation.place)); });
    pump();
    program.world.messages.clear();
    program.world.messages.answer(MessageAnswer::yes);
    program.calls.clear();
    program.busy.clear();
    program.asked = 0;
}

std::int64_t perform(ProgramOnHost& program, const Operation& operation) {
    return program.perform(actionNamed(operation.action), [&](frmPlanliste& list) {
        selectRows(list.lvPlan, [](const ListItem&) { return true; });
        (list.*operation.inPlanList).userClicks();
    });
}

}  // namespace blattwart::test
