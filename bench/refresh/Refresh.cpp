#include "refresh/Refresh.h"

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

RefreshCost measureRefresh(Automation& host, const std::filesystem::path& folder,
                           const std::function<void()>& beforeLast, const std::function<void()>& afterLast) {
    constexpr int refreshes = 5;
    HostAndDatabase both(host);
    demo::CallRecorder recorder(both);
    test::TestPlatform world(recorder);
    const std::filesystem::path file = folder / "Tarvix.mdb";
    demo::mdb::writeDatabase(file, demo::mdb::sampleTables());
    world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                             file.string());
    world.files.addFolder(L"C:\\Vorlagen");
    test::FakePresenter presenter(world.desktop);
    basMain program(world.platform, presenter);
    program.Main();
    TreeView& tree = program.fMainForm->tvTreeView;
    tree.userClicks(tree.node(L"B"));

    RefreshCost cost;
    std::vector<double> times;
    for (int i = 1; i <= refreshes; ++i) {
        recorder.clear();
        if (i == refreshes) beforeLast();
        const Clock::time_point start = Clock::now();
        program.views->RefreshTree();
        times.push_back(millisecondsSince(start));
        if (i == refreshes) afterLast();
        cost.calls = hostCalls(recorder);
    }
    std::ranges::sort(times);
    cost.milliseconds = times[times.size() / 2];
    return cost;
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
    std::printf("\nRefresh of an unchanged session, %s (an empty call takes %.3f ms)\n", title, emptyCall);
    std::printf("%9s %8s %7s %11s %9s %14s\n", "drawings", "layouts", "calls", "time [ms]", "messages",
                "messages*empty");
}

void printLine(std::size_t drawings, std::size_t layouts, const RefreshCost& cost, double emptyCall,
               int messages) {
    std::printf("%9zu %8zu %7zu %11.1f", drawings, layouts, cost.calls, cost.milliseconds);
    if (messages > 0) std::printf(" %9d %14.1f", messages, messages * emptyCall);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace blattwart::bench
