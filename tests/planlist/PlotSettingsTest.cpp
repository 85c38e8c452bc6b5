#include "planlist/PlotSettings.h"
#include "PlanWorld.h"

namespace blattwart::test {

namespace {

PlotSettings usual() {
    PlotSettings settings;
    settings.device = L"DWG To PDF.pc3";
    settings.paper = L"ISO_A3";
    settings.paperUnits = 1;
    settings.rotation = 1;
    settings.area = 5;
    settings.view = L"";
    settings.usesStandardScale = true;
    settings.standardScale = 26;
    settings.ratio = {1, 50};
    settings.centred = false;
    settings.offset = {1.5, 2};
    settings.styleSheet = L"";
    settings.options.fill(false);
    return settings;
}

TEST(PlotSettingsTest, OnlyWhatComesOutDifferentlyIsADifference) {
    using enum PlotProperty;
    using S = PlotSettings;
    const auto nothing = [](S&) {};
    const struct {
        std::function<void(S&)> wanted, present;
        std::vector<PlotProperty> expected;
    } cases[] = {
        {nothing, nothing, {}},
        {[](S& s) { s.device = L"a"; }, [](S& s) { s.paper = L"b"; }, {device, paper}},
        {[](S& s) { s.rotation.reset(); }, [](S& s) { s.rotation = 3; }, {}},
        {nothing, [](S& s) { s.rotation.reset(); }, {orientation}},
        {[](S& s) { s.usesStandardScale = false, s.ratio = std::pair(0.02, 1); }, nothing, {}},
        {[](S& s) { s.ratio = std::pair(1, 100); }, nothing, {scale}},
        {[](S& s) { s.standardScale = 0; }, nothing, {scale}},
        {[](S& s) { s.standardScale = 0; }, [](S& s) { s.standardScale = 0, s.ratio = std::pair(1, 7); }, {}},
        {[](S& s) { s.centred = true; }, [](S& s) { s.centred = true, s.offset = std::pair(9, 9); }, {}},
        {[](S& s) { s.offset = std::pair(1.5, 3); }, nothing, {offset}},
        {[](S& s) { s.view = L"v"; }, nothing, {}},
        {[](S& s) { s.area = 3, s.view = L"v"; }, [](S& s) { s.area = 3; }, {area}},
        {[](S& s) {
             s.area = 4, s.window = std::array{0., 0., 1., 1.};
         },
         [](S& s) {
             s.area = 4, s.window = std::array{2., 0., 1., 1.};
         },
         {area}},
        {[](S& s) { s.area = 4, s.window.emplace(); }, [](S& s) { s.area = 4; }, {area}},
        {[](S& s) { s.centred = true; }, nothing, {offset}},
        {[](S& s) { s.paperUnits = 0, s.styleSheet = L"x", s.options[0] = true; },
         nothing,
         {units, style, options}},
    };
    for (const auto& each : cases) {
        PlotSettings wanted = usual();
        PlotSettings present = usual();
        each.wanted(wanted);
        each.present(present);
        EXPECT_EQ(differences(wanted, present), each.expected) << &each - cases;
    }
    EXPECT_EQ(unread(usual()), std::vector<PlotProperty>{});
    EXPECT_EQ(unread({}),
              (std::vector{device, paper, units, orientation, area, scale, offset, style, options}));
    EXPECT_EQ(plotPropertyName(offset), L"Plot-Abstand");
    EXPECT_EQ(plotPropertyName(options), L"Plotoptionen");
}

TEST(PlotSettingsTest, CellsTellBeforeAndAfter) {
    const GermanLocale locale;
    const auto text = [&](const PlotSettings& settings, PlotProperty property) {
        return plotPropertyText(settings, property, locale);
    };
    const auto scale = [&](double paper, double drawing) {
        PlotSettings settings = usual();
        settings.ratio = {paper, drawing};
        return text(settings, PlotProperty::scale);
    };
    EXPECT_EQ(scale(0.02, 1), L"1:50");
    EXPECT_EQ(scale(2, 1), L"2:1");
    EXPECT_EQ(scale(1, 1), L"1:1");
    EXPECT_EQ(scale(3, 100), L"1:33,33");
    EXPECT_EQ(scale(0, 1), L"");
    EXPECT_EQ(text(usual(), PlotProperty::orientation), L"Querformat");
    EXPECT_EQ(text(usual(), PlotProperty::style), L"Kein");
    EXPECT_EQ(text(PlotSettings(), PlotProperty::area), L"");
    PlotSettings fitted = usual();
    fitted.standardScale = 0;
    fitted.area = 1;
    EXPECT_EQ(text(fitted, PlotProperty::scale), L"angepasst");
    EXPECT_EQ(changeText(text(usual(), PlotProperty::area), text(fitted, PlotProperty::area)),
              L"Layout → Grenzen (Zeichnung)");
    EXPECT_EQ(changeText(L"A3", L"A3"), L"A3");
}

}  // namespace

}  // namespace blattwart::test
