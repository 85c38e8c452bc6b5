#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "demo/host/CallRecorder.h"
#include "demo/host/DemoAutomation.h"
#include "planlist/PdfRun.h"
#include "planlist/PlanOrder.h"
#include "planlist/PlanTransfer.h"
#include "planlist/PlanWriter.h"
#include "support/NoMainWindow.h"
#include "support/TestPlatform.h"

namespace blattwart::test {

using Names = std::vector<std::wstring>;

/// The host's own error, of a call that it does not like.
inline constexpr auto refused = static_cast<std::int32_t>(0x80200003);

/// The plan list on a demonstration host of its own, without its window.
class PlanWorld {
  public:
    explicit PlanWorld(demo::HostOptions options = {}) : demo(plottingToMemory(std::move(options))) {
        demo.start();
        autoCAD.ConnectAutoCAD();
    }

    demo::Host& host() { return *demo.host(); }
    demo::DocumentPtr open(const std::wstring& folder, const std::wstring& name, const Names& layouts) {
        return host().addDocument(folder, name, layouts);
    }
    /// Attaches and reads everything.
    void read() {
        autoCAD.ConnectAutoCAD();
        reader.begin();
        finish(reader);
    }
    template <class Stepping>
    static void finish(Stepping& work) {
        while (work.step()) {
        }
    }
    /// Takes the last operation back, one of the kind that the group does.
    static void takeBack(PlanGroup& group) {
        group.beginUndo();
        finish(group);
    }
    /// The rows in the base order, each "drawing|number|layout|status", before the status with device, paper
    /// and style where there is a device.
    Names rows() {
        Names texts;
        for (const PlanDrawing& drawing : plan.drawings()) {
            if (!drawing.complete) continue;
            for (const PlanRow& row : drawing.rows) {
                const Names cells = plan.cells(drawing, row);
                std::wstring& text = texts.emplace_back(cells[1] + L"|" + cells[2] + L"|" + cells[0]);
                if (cells[3] != L"None") text += L"|" + cells[3] + L"|" + cells[4] + L"|" + cells[5];
                text += L"|" + cells[6];
            }
        }
        return texts;
    }
    int number(std::wstring_view drawing, std::wstring_view layout) {
        for (PlanDrawing& each : plan.drawings())
            if (const PlanRow* row = plan.findRow(each, layout); row && each.shownName == drawing)
                return row->number;
        ADD_FAILURE() << "no such row";
        return 0;
    }
    /// Changes how a layout is plotted.
    static void change(const demo::DocumentPtr& document, const std::wstring& layout,
                       const std::function<void(demo::PlotSettings&)>& how) {
        demo::PlotSettings settings = document->findLayout(layout)->plotSettings();
        how(settings);
        document->findLayout(layout)->setPlotSettings(settings);
    }
    /// What the host calls the paper layouts of a drawing, in the order of its tabs.
    static Names layouts(const demo::DocumentPtr& document) {
        Names names;
        for (const demo::Layout* layout : document->drawing().layouts())
            if (!layout->isModel()) names.push_back(layout->name());
        return names;
    }

    /// The paper layouts in the order of the numbers that the host gives them.
    static Names tabs(const demo::DocumentPtr& document) {
        std::vector<std::pair<std::int32_t, std::wstring>> numbered;
        for (const demo::Layout* layout : document->drawing().layouts())
            if (!layout->isModel()) numbered.emplace_back(document->tabNumber(*layout), layout->name());
        std::ranges::sort(numbered);
        Names names;
        for (const auto& [number, name] : numbered) names.push_back(name);
        return names;
    }
    /// Lets each of the host's calls from `first` to `last` fail.
    void failFrom(std::size_t first, std::size_t last, std::int32_t number, demo::Moment moment) {
        for (std::size_t n = first; n <= last; ++n)
            calls.failAt(n, RuntimeError(number, L"Ungültige Eingabe"), moment);
    }
    /// The next calls of this name ("put Layout.Name") fail.
    void failNext(const std::wstring& call, std::int32_t number, int times = 1) {
        calls.beforeCall([=, this](std::size_t n) mutable {
            if (calls.list().back() == call && times-- > 0)
                calls.failAt(n, RuntimeError(number, L"Ungültige Eingabe"));
        });
    }

    demo::DemoAutomation demo;
    demo::CallRecorder calls{demo};
    TestPlatform world{calls};
    NavigatorRecords records;
    NoMainWindow events;
    basAutoCAD autoCAD{world.platform, records, events};
    PlanList plan{world.locale};
    PlanReader reader{autoCAD, world.platform, plan};
    PlanUndo undo;
    PlanWriter writer{reader, plan, undo, world.platform};
    PlanOrder order{autoCAD, reader, plan, undo};
    PlanTransfer transfer{reader, plan, undo, world.locale};
    PlanRestore restore{autoCAD};
    PdfRun pdf{reader, plan, restore, world.platform, std::chrono::milliseconds(5)};

  private:
    /// Plots go to the files that the program sees.
    demo::HostOptions plottingToMemory(demo::HostOptions options) {
        options.writePlot = [this](const std::wstring& path, const std::string& bytes) {
            if (world.files.exists(path)) return false;
            world.files.fill(path, {bytes.begin(), bytes.end()});
            return true;
        };
        return options;
    }
};

/// An error and how many calls fail with it, though they were carried out.
struct FailingCalls {
    std::int32_t error;
    std::size_t count;
};

/// Lets each call of an operation and of taking it back fail, by one of the failures after the other: in the
/// end the host has what was wanted, or the user is told, and in both cases it can be taken back. `make`
/// gives a world whose operation has begun and called nothing yet: a pointer to a PlanWorld with `group()`,
/// which goes on with it, and `now()`, what it changes.
template <class Make>
void expectFailuresCanBeTakenBack(const Make& make, const std::vector<FailingCalls>& failures) {
    const auto undisturbed = make();
    const auto before = undisturbed->now();
    PlanWorld::finish(undisturbed->group());
    const auto wanted = undisturbed->now();
    const std::size_t callsOfOperation = undisturbed->calls.count();
    PlanWorld::takeBack(undisturbed->group());
    for (std::size_t call = 1; call <= undisturbed->calls.count(); ++call) {
        const auto& [error, count] = failures[call % failures.size()];
        SCOPED_TRACE(std::to_string(count) + " from " + std::to_string(call));
        const auto world = make();
        PlanGroup& group = world->group();
        world->failFrom(call, call + count - 1, error, demo::Moment::after);
        PlanWorld::finish(group);
        const bool undoing = call > callsOfOperation;
        if (undoing) PlanWorld::takeBack(group);
        world->calls.heal();
        EXPECT_TRUE(world->now() == (undoing ? before : wanted) || !group.result().message().empty());
        if (!world->undo.empty()) PlanWorld::takeBack(group);
        EXPECT_EQ(world->now(), before);
        EXPECT_TRUE(world->undo.empty());
    }
}

}  // namespace blattwart::test
