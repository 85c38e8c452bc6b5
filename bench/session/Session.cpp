#include "session/Session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "ado/Ado.h"
#include "host/Application.h"
#include "host/CallRecorder.h"
#include "mdb/Database.h"
#include "mdb/DefinitionTables.h"
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
    bool callPending() const override { return host_.callPending(); }

  private:
    Automation& host_;
};

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::size_t hostCalls(const demo::CallRecorder& recorder) {
    return static_cast<std::size_t>(
        std::ranges::count_if(recorder.calls(), [](const demo::RecordedCall& call) {
            return call.kind != demo::RecordedCall::Kind::create && call.className != L"Connection" &&
                   call.className != L"Recordset" && call.className != L"Fields" &&
                   call.className != L"Field";
        }));
}

}  // namespace

struct Session::World {
    explicit World(Automation& host)
        : both(host), recorder(both), platform(recorder), presenter(platform.desktop) {}

    TreeView& tree() { return program.fMainForm->tvTreeView; }

    HostAndDatabase both;
    demo::CallRecorder recorder;
    test::TestPlatform platform;
    test::FakePresenter presenter;
    basMain program{platform.platform, presenter};
};

Session::Session(Automation& host, const std::filesystem::path& folder, std::function<int()> messages)
    : world_(std::make_unique<World>(host)), messages_(std::move(messages)) {
    const std::filesystem::path file = folder / "Tarvix.mdb";
    demo::mdb::writeDatabase(file, demo::mdb::sampleTables());
    world_->platform.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                                        file.string());
    world_->platform.files.addFolder(L"C:\\Vorlagen");
    world_->program.Main();
}

Session::~Session() = default;

Cost Session::measure(const std::function<void()>& action) {
    constexpr int times = 5;
    Cost cost;
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        world_->recorder.clear();
        const int before = messages_();
        const Clock::time_point start = Clock::now();
        action();
        taken.push_back(millisecondsSince(start));
        cost.messages = messages_() - before;
        cost.calls = hostCalls(world_->recorder);
    }
    std::ranges::sort(taken);
    cost.milliseconds = taken[taken.size() / 2];
    return cost;
}

Cost Session::refresh() {
    world_->tree().userClicks(world_->tree().node(L"B"));
    return measure([this] { world_->program.views->RefreshTree(); });
}

Cost Session::clickDrawing() {
    TreeNode& drawing = *world_->tree().node(L"A").children().front();
    return measure([&] { world_->tree().userClicks(drawing); });
}

Cost Session::clickLayout(std::wstring_view name) {
    TreeNode* layout = nullptr;
    world_->tree().forEach([&](TreeNode& node) {
        if (!layout && node.text() == name) layout = &node;
    });
    return measure([&] { world_->tree().userClicks(*layout); });
}

double measureEmptyCall(Automation& host) {
    constexpr int calls = 300;
    const ObjectPtr application = host.running(L"AutoCAD.Application.18");
    application->get({L"Application", L"Visible"});
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < calls; ++i) application->get({L"Application", L"Visible"});
    return millisecondsSince(start) / calls;
}

void printHeading(const char* title, double emptyCall) {
    std::printf("\nMeasured %s (an empty call takes %.3f ms)\n", title, emptyCall);
    std::printf("%-44s %7s %11s %9s %14s\n", "", "calls", "time [ms]", "messages", "messages*empty");
}

void printLine(const std::string& what, const Cost& cost, double emptyCall) {
    std::printf("%-44s %7zu %11.1f", what.c_str(), cost.calls, cost.milliseconds);
    if (cost.messages > 0) std::printf(" %9d %14.1f", cost.messages, cost.messages * emptyCall);
    std::printf("\n");
    std::fflush(stdout);
}

std::vector<std::wstring> layoutNames(std::size_t count) {
    std::vector<std::wstring> names;
    for (std::size_t n = 1; n <= count; ++n) names.push_back(L"Blatt " + std::to_wstring(n));
    return names;
}

demo::Drawing crowdedDrawing() {
    constexpr int objects = 2000;
    constexpr int viewports = 17;
    demo::Drawing drawing = demo::Drawing::createEmpty();
    drawing.registerApplication(L"Tarvix");
    demo::Layout& sheet = drawing.addLayout(L"Blatt");
    const auto add = [&](const char* type, demo::Groups groups, const wchar_t* marker) {
        demo::Object& object = drawing.addEntity(sheet.block(), type, std::move(groups));
        if (marker) drawing.setXData(object, {{1001, L"Tarvix"}, {1071, 0}, {1005, marker}});
    };
    for (int i = 0; i < viewports; ++i)
        add("VIEWPORT", {{10, "1"}, {20, "1"}, {40, "200"}, {41, "100"}, {69, "2"}, {45, "5000"}}, L"1");
    for (const wchar_t* marker : {L"8", L"9", L"14"})
        add("INSERT", {demo::textGroup(2, L"TX_LEGENDE"), {10, "0"}, {20, "0"}, {30, "0"}}, marker);
    for (int i = viewports + 3; i < objects; ++i)
        add("LINE", {{10, "0"}, {20, "0"}, {11, "1"}, {21, "1"}}, nullptr);
    return drawing;
}

}  // namespace blattwart::bench
