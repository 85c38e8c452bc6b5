// The program on the demonstration host as a process of its own, over COM.

#include <chrono>
#include <cstdio>

#include "com/Client.h"
#include "session/BenchProgram.h"
#include "session/Drawings.h"
#include "session/Least.h"
#include "session/Script.h"
#include "session/SentMessages.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* hostWindow = L"CadHostWindow";
constexpr const wchar_t* hostName = L"AutoCAD.Application.18";

/// Mean time of a call that does nothing, as each operation is the sum of many.
double emptyCall() {
    constexpr int calls = 100;
    Client client;
    const ObjectPtr application = attach(client, hostName);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) application->get({L"Application", L"Visible"});
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count() /
           calls;
}

/// The host with these drawings, and what goes over the wire to it.
class HostProgram {
  public:
    explicit HostProgram(const std::wstring& drawings)
        : program_(CADHOST, L"/silent /Automation" + drawings, hostWindow) {
        Client client;
        attach(client, hostName);
    }

    HostProgram(const HostProgram&) = delete;
    HostProgram& operator=(const HostProgram&) = delete;
    /// Ended in good order: scripts would still be led to a host that was killed.
    ~HostProgram() { program_.quit(); }

  private:
    RunningProgram program_;
};

/// The program, freshly started on the host.
class FreshProgram {
  public:
    explicit FreshProgram(const Wire& wire)
        : program_(client_.automation, std::filesystem::temp_directory_path(), wire),
          start_(program_.start()) {}

    const Cost& start() const { return start_; }
    BenchProgram* operator->() { return &program_; }

  private:
    Client client_;
    BenchProgram program_;
    Cost start_;
};

Cost measureStart(const Wire& wire) {
    constexpr int times = 3;
    std::vector<Cost> costs;
    costs.reserve(times);
    for (int i = 0; i < times; ++i) costs.push_back(FreshProgram(wire).start());
    return median(std::move(costs));
}

void printHeading() {
    std::printf("%-36s %6s %9s %6s %8s %7s %6s %9s %7s\n", "", "calls", "messages", "least", "empty", "ms",
                "ratio", "script", "quicker");
}

/// False when more messages went over the wire than the least.
bool printLine(const std::string& what, const Cost& cost, int least, double script) {
    std::printf("%-36s %6zu %9d %6d %8.3f %7.1f %6.2f %9.1f %7.2f\n", what.c_str(), cost.calls, cost.messages,
                least, cost.emptyCall, cost.milliseconds,
                cost.milliseconds / (cost.messages * cost.emptyCall), script, script / cost.milliseconds);
    std::fflush(stdout);
    return cost.messages <= least;
}

bool measure(int drawings, int layouts, const Wire& wire) {
    const HostProgram host(drawingsAsCommands(drawings, layouts));
    const std::string size = ", " + std::to_string(drawings) + " x " + std::to_string(layouts);
    const auto print = [&](const char* what, const Cost& cost, int least, const wchar_t* script) {
        return printLine(what + size, cost, least, runScript(script));
    };
    bool good =
        print("attach and first tree", measureStart(wire), leastForStart(drawings, layouts), L"start");
    FreshProgram program(wire);
    good &= print("refresh", program->refresh(), leastForRefresh(drawings, layouts), L"refresh");
    // What comes beside F5: whether AutoCAD runs, and what is given back of that.
    constexpr int besideF5 = 3;
    good &= print("return to the window", program->comeBack(), program->pressF5().messages + besideF5,
                  L"refresh");
    good &= print("click on a drawing", program->clickDrawing(), leastForClick(drawings, layouts), L"click");
    good &= print("plan list", program->openPlanList(), leastForPlanList(drawings, layouts), L"plans");
    return good;
}

bool measureAll() {
    runProgram(CADHOST, L"/register /silent");
    const Wire wire{.messages = countSentMessages(), .emptyCall = emptyCall};
    printHeading();
    bool good = true;
    for (const int drawings : drawingCounts) good &= measure(drawings, layoutsEach, wire);
    good &= measure(1, mostLayouts, wire);
    if (!good) std::printf("More messages than the least.\n");
    return good;
}

}  // namespace

}  // namespace blattwart::bench

int main() {
    try {
        return blattwart::bench::measureAll() ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 2;
    }
}
