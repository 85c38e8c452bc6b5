// Refreshes on the demonstration host as a process of its own, over COM.

#include <cstdio>
#include <optional>

#include "com/Client.h"
#include "refresh/Refresh.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* hostWindow = L"CadHostWindow";

std::wstring drawingsAsCommands(std::size_t drawings) {
    std::wstring options = L"/silent ";
    for (std::size_t i = 0; i < drawings; ++i) {
        options += L"/do \"add C:\\Projekte|Plan " + std::to_wstring(i) + L".dwg";
        for (std::size_t n = 1; n <= layoutsEach; ++n) options += L"|Blatt " + std::to_wstring(n);
        options += L"\" ";
    }
    return options;
}

/// What has gone over the wire so far.
int messages(const RunningProgram& host) {
    std::map<std::string, int> counters = host.counters();
    return counters["calls"] + counters["idLookups"] + counters["nexts"] + counters["released"];
}

void measure(std::size_t drawings) {
    const RunningProgram host(CADHOST, drawingsAsCommands(drawings), hostWindow);
    Client client;
    attach(client, L"AutoCAD.Application.18");
    const double emptyCall = measureEmptyCall(client.automation);
    if (drawings == drawingCounts[0]) printHeading("over COM", emptyCall);
    int before = 0;
    int after = 0;
    const RefreshCost cost = measureRefresh(
        client.automation, std::filesystem::temp_directory_path(), [&] { before = messages(host); },
        [&] { after = messages(host); });
    printLine(drawings, drawings * (layoutsEach + 1), cost, emptyCall, after - before);
}

}  // namespace

}  // namespace blattwart::bench

int main() {
    blattwart::runProgram(CADHOST, L"/register /silent");
    for (const std::size_t drawings : blattwart::bench::drawingCounts) blattwart::bench::measure(drawings);
}
