#include "session/Drawings.h"

namespace blattwart::bench {

namespace {

std::vector<std::wstring> layoutNames(int count) {
    std::vector<std::wstring> names;
    for (int n = 1; n <= count; ++n) names.push_back(L"Blatt " + std::to_wstring(n));
    return names;
}

}  // namespace

std::wstring drawingName(int number) {
    return L"Plan " + std::to_wstring(number) + L".dwg";
}

void addDrawings(demo::Host& host, int drawings, int layouts) {
    for (int i = 0; i < drawings; ++i) host.addDocument(projectFolder, drawingName(i), layoutNames(layouts));
}

std::wstring drawingsAsCommands(int drawings, int layouts) {
    std::wstring options;
    for (int i = 0; i < drawings; ++i) {
        options += std::wstring(L" /do \"add ") + projectFolder + L"|" + drawingName(i);
        for (const std::wstring& name : layoutNames(layouts)) options += L"|" + name;
        options += L"\"";
    }
    return options;
}

demo::Drawing crowdedDrawing() {
    constexpr int objects = 2000;
    constexpr int viewports = 17;
    demo::Drawing drawing = demo::Drawing::createEmpty();
    drawing.registerApplication(L"Tarvix");
    demo::Layout& sheet = drawing.addLayout(L"Blatt");
    const auto add = [&](const char* type, const demo::Groups& groups, const wchar_t* marker) {
        demo::Object& object = drawing.addEntity(sheet.block(), type, groups);
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
