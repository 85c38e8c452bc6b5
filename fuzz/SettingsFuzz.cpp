// Settings of the user, one "key=text" a line: the program starts with them or tells which one is broken, and
// what it stores at its end brings it up the same way.
#include <algorithm>
#include <cmath>

#include "demo/host/DemoAutomation.h"
#include "Input.h"
#include "program/FakeWindow.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"

using namespace blattwart;
using fuzz::require;

namespace {

/// One run of the program with these settings, which it changes. Returns whether its window came up.
bool run(test::FakeSettings& settings) {
    demo::DemoAutomation automation;
    automation.start();
    test::TestPlatform world(automation);
    world.settings.values = settings.values;
    test::FakePresenter presenter(world.desktop);
    basMain program(world.platform, presenter);
    if (!program.Main()) {
        const std::wstring text = world.messages.shown.back().text;
        require(text.find(L"Gespeichert unter:") != std::wstring::npos, "the user is told what is broken");
        return false;
    }
    frmMain& form = *program.fMainForm;
    form.Form_Resize();
    require(std::isfinite(form.tvTreeView.width()) && std::isfinite(form.lvListView.width()),
            "all controls have sizes");
    std::vector<int> places;
    for (const ListColumn& column : form.lvListView.columns()) {
        require(column.width >= 0 && std::isfinite(column.width), "all columns have widths");
        places.push_back(column.position);
    }
    std::ranges::sort(places);
    for (std::size_t i = 0; i < places.size(); ++i)
        require(places[i] == static_cast<int>(i), "the places of the columns are a permutation");
    presenter.inPlanliste = [&](frmPlanliste& list) {
        presenter.dialog.goOn();
        list.cmdClose.userClicks();
    };
    form.item(L"mnuPlanList").click();
    for (const ListColumn& column : program.planList.lvPlan.columns())
        require(column.width >= 0 && std::isfinite(column.width), "so have the plan list's");
    form.Form_Unload();
    settings.values = world.settings.values;
    return true;
}

}  // namespace

void fuzz::fuzzSettings(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    test::FakeSettings settings;
    while (!input.atEnd()) {
        const std::wstring line = input.text();
        const std::size_t equals = std::min(line.find(L'='), line.size());
        settings.set(line.substr(0, equals), line.substr(std::min(equals + 1, line.size())));
    }
    if (!run(settings)) return;
    const auto stored = settings.values;
    require(run(settings), "the program starts with what it has stored");
    require(settings.values == stored, "settings are read as they were written");
}
