// The program on the demonstration host's objects in this process: what the program itself costs.

#include "host/DemoAutomation.h"
#include "session/Session.h"

int main() {
    using namespace blattwart::bench;
    demo::DemoAutomation automation;
    automation.start();
    const double emptyCall = measureEmptyCall(automation);
    printHeading("in one process", emptyCall);
    const auto session = [&] {
        return Session(automation, std::filesystem::temp_directory_path(), [] { return 0; });
    };
    for (const std::size_t drawings : drawingCounts) {
        demo::Host& host = automation.start();
        for (std::size_t i = 0; i < drawings; ++i)
            host.addDocument(L"C:\\Projekte", L"Plan " + std::to_wstring(i) + L".dwg",
                             layoutNames(layoutsEach));
        printLine("refresh, " + std::to_string(drawings) + " drawings of 20 layouts", session().refresh(),
                  emptyCall);
    }
    for (const std::size_t layouts : layoutCounts) {
        automation.start().addDocument(L"C:\\Projekte", L"Plan.dwg", layoutNames(layouts));
        printLine("click on a drawing of " + std::to_string(layouts) + " layouts", session().clickDrawing(),
                  emptyCall);
    }
    automation.start().addDocument(L"C:\\Projekte", L"Voll.dwg", crowdedDrawing());
    printLine("click on a layout of 2000 objects", session().clickLayout(L"Blatt"), emptyCall);
}
