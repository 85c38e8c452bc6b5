// The program on the demonstration host as a process of its own, over COM.

#include <cstdio>

#include "com/Client.h"
#include "session/Drawings.h"
#include "session/Least.h"
#include "session/Script.h"
#include "session/SentMessages.h"
#include "session/Session.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* hostWindow = L"CadHostWindow";
constexpr const wchar_t* hostName = L"AutoCAD.Application.18";

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

    double emptyCall() const {
        Client client;
        return measureEmptyCall(client.automation);
    }

  private:
    RunningProgram program_;
};

/// The program, freshly started on the host.
class FreshSession {
  public:
    explicit FreshSession(const std::function<int()>& messages)
        : session_(client_.automation, std::filesystem::temp_directory_path(), messages),
          start_(session_.start()) {}

    const Cost& start() const { return start_; }
    Session* operator->() { return &session_; }

  private:
    Client client_;
    Session session_;
    Cost start_;
};

Cost measureStart(const std::function<int()>& messages) {
    constexpr int times = 3;
    std::vector<Cost> costs;
    for (int i = 0; i < times; ++i) costs.push_back(FreshSession(messages).start());
    return median(std::move(costs));
}

void printHeading() {
    std::printf("%-36s %6s %9s %6s %8s %7s %6s %9s %7s\n", "", "calls", "messages", "least", "empty", "ms",
                "ratio", "script", "quicker");
}

/// False when more messages went over the wire than the least.
bool printLine(const std::string& what, const Cost& cost, int least, double emptyCall, double script) {
    std::printf("%-36s %6zu %9d %6d %8.3f %7.1f %6.2f %9.1f %7.2f\n", what.c_str(), cost.calls, cost.messages,
                least, emptyCall, cost.milliseconds, cost.milliseconds / (cost.messages * emptyCall), script,
                script / cost.milliseconds);
    std::fflush(stdout);
    return cost.messages <= least;
}

bool measure(int drawings, int layouts, const std::function<int()>& messages) {
    const HostProgram host(drawingsAsCommands(drawings, layouts));
    const std::string size = ", " + std::to_string(drawings) + " x " + std::to_string(layouts);
    const auto print = [&](const char* what, const Cost& cost, int least, const wchar_t* script) {
        return printLine(what + size, cost, least, host.emptyCall(), runScript(script));
    };
    bool good =
        print("attach and first tree", measureStart(messages), leastForStart(drawings, layouts), L"start");
    FreshSession session(messages);
    good &= print("refresh", session->refresh(), leastForRefresh(drawings, layouts), L"refresh");
    good &= print("click on a drawing", session->clickDrawing(), leastForClick(drawings, layouts), L"click");
    return good;
}

}  // namespace

}  // namespace blattwart::bench

int main() {
    using namespace blattwart::bench;
    blattwart::runProgram(CADHOST, L"/register /silent");
    const std::function<int()> messages = countSentMessages();
    printHeading();
    bool good = true;
    for (const int drawings : drawingCounts) good &= measure(drawings, layoutsEach, messages);
    good &= measure(1, mostLayouts, messages);
    if (!good) std::printf("More messages than the least.\n");
    return good ? 0 : 1;
}
