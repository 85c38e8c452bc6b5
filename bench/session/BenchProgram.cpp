#include "session/BenchProgram.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "demo/ado/Ado.h"
#include "demo/host/CallRecorder.h"
#include "demo/samples/SampleDatabase.h"
#include "host/Application.h"
#include "program/FakeWindow.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"

namespace blattwart::bench {

namespace {

/// The host from outside, the database in this process.
class HostAndDatabase : public Automation {
  public:
    explicit HostAndDatabase(Automation& host) : host_(host) {}

    ObjectPtr running(std::wstring_view name) override { return host_.running(name); }
    ObjectPtr create(std::wstring_view name) override {
        return name.starts_with(L"ADODB.") ? demo::makeAdo(name) : host_.create(name);
    }

  private:
    Automation& host_;
};

using Clock = std::chrono::steady_clock;

double millisecondsBetween(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::milli>(end - start).count();
}

std::size_t hostCalls(const demo::CallRecorder& recorder) {
    return static_cast<std::size_t>(std::ranges::count_if(recorder.calls(), &demo::RecordedCall::ofHost));
}

}  // namespace

struct BenchProgram::World {
    explicit World(Automation& host)
        : both(host), recorder(both), platform(recorder), presenter(platform.desktop) {
        recorder.beforeCall([this](std::size_t) { moments.push_back(Clock::now()); });
    }

    TreeView& tree() { return program.fMainForm->tvTreeView; }
    /// Milliseconds from each call of the database to the call after it.
    double database() const {
        double milliseconds = 0;
        for (std::size_t i = 0; i + 1 < moments.size(); ++i)
            if (!recorder.calls()[i].ofHost) milliseconds += millisecondsBetween(moments[i], moments[i + 1]);
        return milliseconds;
    }

    HostAndDatabase both;
    demo::CallRecorder recorder;
    test::TestPlatform platform;
    test::FakePresenter presenter;
    basMain program{platform.platform, presenter};
    std::vector<Clock::time_point> moments;  ///< when each recorded call was made
};

BenchProgram::BenchProgram(Automation& host, const std::filesystem::path& folder, Wire wire)
    : world_(std::make_unique<World>(host)), wire_(std::move(wire)) {
    const std::filesystem::path file = folder / "Tarvix.mdb";
    std::filesystem::remove(file);
    demo::makeDatabase(file.wstring());
    world_->platform.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                                        file.string());
    world_->platform.files.addFolder(L"C:\\Vorlagen");
}

BenchProgram::~BenchProgram() = default;

Cost BenchProgram::once(const std::function<void()>& action) {
    const double before = wire_.emptyCall();
    world_->moments.clear();
    world_->recorder.clear();
    const int messages = wire_.messages();
    const Clock::time_point start = Clock::now();
    action();
    world_->moments.push_back(Clock::now());
    const double taken = millisecondsBetween(start, world_->moments.back());
    const int sent = wire_.messages() - messages;
    return {hostCalls(world_->recorder), taken - world_->database(), sent, (before + wire_.emptyCall()) / 2};
}

Cost BenchProgram::measure(const std::function<void()>& action) {
    constexpr int times = 5;
    std::vector<Cost> costs;
    costs.reserve(times);
    for (int i = 0; i < times; ++i) costs.push_back(once(action));
    return median(std::move(costs));
}

Cost BenchProgram::start() {
    return once([this] { world_->program.Main(); });
}

Cost BenchProgram::refresh() {
    world_->tree().userClicks(world_->tree().node(L"B"));
    return measure([this] { world_->program.views->RefreshTree(); });
}

Cost BenchProgram::pressF5() {
    world_->tree().userClicks(world_->tree().node(L"B"));
    return measure([this] { world_->program.fMainForm->item(L"mnuViewRefresh").click(); });
}

Cost BenchProgram::comeBack() {
    world_->tree().userClicks(world_->tree().node(L"B"));
    frmMain& form = *world_->program.fMainForm;
    return measure([&] {
        world_->platform.desktop.foregroundWindow = 1;
        form.ctlTimer_Timer();
        world_->platform.desktop.foregroundWindow = test::FakeWindow::ownHandle;
        form.Form_Activate();
        form.ctlTimer_Timer();
    });
}

Cost BenchProgram::clickDrawing() {
    TreeNode& drawing = *world_->tree().node(L"A").children().front();
    return measure([&] { world_->tree().userClicks(drawing); });
}

Cost BenchProgram::clickLayout(std::wstring_view name) {
    TreeNode* layout = nullptr;
    world_->tree().forEach([&](TreeNode& node) {
        if (!layout && node.text() == name) layout = &node;
    });
    return measure([&] { world_->tree().userClicks(*layout); });
}

Cost BenchProgram::openPlanList() {
    world_->presenter.inPlanliste = [this](frmPlanliste& list) {
        world_->presenter.dialog.goOn();
        list.cmdClose.userClicks();
    };
    return measure([this] { world_->program.fMainForm->item(L"mnuPlanList").click(); });
}

Cost median(std::vector<Cost> costs) {
    std::ranges::sort(costs, {}, [](const Cost& cost) { return cost.milliseconds / cost.emptyCall; });
    return costs[costs.size() / 2];
}

}  // namespace blattwart::bench
