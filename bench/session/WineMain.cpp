// The program on the demonstration host as a process of its own, over COM.

#include "com/Client.h"
#include "session/Session.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* hostWindow = L"CadHostWindow";

std::wstring drawingsAsCommands(std::size_t drawings, std::size_t layouts) {
    std::wstring options = L"/silent ";
    for (std::size_t i = 0; i < drawings; ++i) {
        options += L"/do \"add C:\\Projekte|Plan " + std::to_wstring(i) + L".dwg";
        for (const std::wstring& name : layoutNames(layouts)) options += L"|" + name;
        options += L"\" ";
    }
    return options;
}

/// What has gone over the wire so far.
int messages(const RunningProgram& host) {
    std::map<std::string, int> counters = host.counters();
    return counters["calls"] + counters["idLookups"] + counters["nexts"] + counters["released"];
}

void measure(const std::wstring& hostOptions, const std::string& what,
             const std::function<Cost(Session&)>& action) {
    const RunningProgram host(CADHOST, hostOptions, hostWindow);
    Client client;
    attach(client, L"AutoCAD.Application.18");
    const double emptyCall = measureEmptyCall(client.automation);
    Session session(client.automation, std::filesystem::temp_directory_path(),
                    [&] { return messages(host); });
    printLine(what, action(session), emptyCall);
}

void measureAll() {
    for (const std::size_t drawings : drawingCounts)
        measure(drawingsAsCommands(drawings, layoutsEach),
                "refresh, " + std::to_string(drawings) + " drawings of 20 layouts",
                [](Session& session) { return session.refresh(); });
    for (const std::size_t layouts : layoutCounts)
        measure(drawingsAsCommands(1, layouts),
                "click on a drawing of " + std::to_string(layouts) + " layouts",
                [](Session& session) { return session.clickDrawing(); });
    const std::wstring crowded = temporaryFile(L"Voll.dwg");
    crowdedDrawing().saveFile(crowded);
    measure(L"/silent \"" + crowded + L"\"", "click on a layout of 2000 objects",
            [](Session& session) { return session.clickLayout(L"Blatt"); });
}

double emptyCallOfAFreshHost() {
    const RunningProgram host(CADHOST, L"/silent", hostWindow);
    Client client;
    attach(client, L"AutoCAD.Application.18");
    return measureEmptyCall(client.automation);
}

}  // namespace

}  // namespace blattwart::bench

int main() {
    blattwart::runProgram(CADHOST, L"/register /silent");
    blattwart::bench::printHeading("over COM", blattwart::bench::emptyCallOfAFreshHost());
    blattwart::bench::measureAll();
}
