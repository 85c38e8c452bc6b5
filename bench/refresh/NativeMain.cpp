// Refreshes on the demonstration host's objects in this process: what the program itself costs.

#include "host/DemoAutomation.h"
#include "refresh/Refresh.h"

int main() {
    using namespace blattwart::bench;
    demo::DemoAutomation automation;
    automation.start();
    const double emptyCall = measureEmptyCall(automation);
    printHeading("in one process", emptyCall);
    const auto nothing = [] {};
    for (const std::size_t drawings : drawingCounts) {
        demo::Host& host = automation.start();
        for (std::size_t i = 0; i < drawings; ++i) {
            std::vector<std::wstring> layouts;
            for (std::size_t n = 1; n <= layoutsEach; ++n) layouts.push_back(L"Blatt " + std::to_wstring(n));
            host.addDocument(L"C:\\Projekte", L"Plan " + std::to_wstring(i) + L".dwg", layouts);
        }
        const RefreshCost cost =
            measureRefresh(automation, std::filesystem::temp_directory_path(), nothing, nothing);
        printLine(drawings, drawings * (layoutsEach + 1), cost, emptyCall, 0);
    }
}
