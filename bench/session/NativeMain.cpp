// The program on the demonstration host's objects in this process: what the program itself costs.

#include <cstdio>
#include <cstdlib>

#include "demo/host/DemoAutomation.h"
#include "session/BenchProgram.h"
#include "session/Drawings.h"

namespace blattwart::bench {

namespace {

void printLine(const std::string& what, const Cost& cost) {
    std::printf("%-44s %7zu %11.2f\n", what.c_str(), cost.calls, cost.milliseconds);
}

std::unique_ptr<BenchProgram> startProgram(Automation& automation) {
    auto program = std::make_unique<BenchProgram>(automation, std::filesystem::temp_directory_path());
    program->start();
    return program;
}

Cost refresh(demo::DemoAutomation& automation, int drawings) {
    addDrawings(automation.start(), drawings, layoutsEach);
    return startProgram(automation)->refresh();
}

Cost comeBack(demo::DemoAutomation& automation, int drawings) {
    addDrawings(automation.start(), drawings, layoutsEach);
    return startProgram(automation)->comeBack();
}

Cost openPlanList(demo::DemoAutomation& automation, int drawings) {
    addDrawings(automation.start(), drawings, layoutsEach);
    return startProgram(automation)->openPlanList();
}

Cost clickDrawing(demo::DemoAutomation& automation, int layouts) {
    addDrawings(automation.start(), 1, layouts);
    return startProgram(automation)->clickDrawing();
}

void measureAll() {
    demo::DemoAutomation automation;
    std::printf("%-44s %7s %11s\n", "", "calls", "time [ms]");
    for (const int drawings : drawingCounts)
        printLine("refresh, " + std::to_string(drawings) + " drawings of 20 layouts",
                  refresh(automation, drawings));
    for (const int drawings : {10, 50})
        printLine("return to the window, " + std::to_string(drawings) + " drawings of 20 layouts",
                  comeBack(automation, drawings));
    for (const int drawings : {10, 50})
        printLine("plan list, " + std::to_string(drawings) + " drawings of 20 layouts",
                  openPlanList(automation, drawings));
    for (const int layouts : {layoutsEach, mostLayouts})
        printLine("click on a drawing of " + std::to_string(layouts) + " layouts",
                  clickDrawing(automation, layouts));
    automation.start().addDocument(projectFolder, L"Voll.dwg", crowdedDrawing());
    printLine("click on a layout of 2000 objects", startProgram(automation)->clickLayout(L"Blatt"));
}

/// "refresh" with so many drawings, or "click" on a drawing of so many layouts, for a tool that counts
/// instructions.
bool runOne(std::string_view action, int size) {
    demo::DemoAutomation automation;
    if (action == "refresh") return refresh(automation, size).calls > 0;
    if (action == "click") return clickDrawing(automation, size).calls > 0;
    return false;
}

}  // namespace

}  // namespace blattwart::bench

int main(int count, char** words) {
    if (count == 3) return blattwart::bench::runOne(words[1], std::atoi(words[2])) ? 0 : 1;
    blattwart::bench::measureAll();
    return 0;
}
