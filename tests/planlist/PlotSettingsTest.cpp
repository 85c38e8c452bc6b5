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
    using Change = std::function<void(PlotSettings&)>;
    using enum PlotProperty;
    const auto fit = [](PlotSettings& s) { s.standardScale = 0; };
    const struct {
        Change wanted;
        Change present;
        std::vector<PlotProperty> expected;
    } cases[] = {
        {[](PlotSettings&) {}, [](PlotSettings&) {}, {}},
        {[](PlotSettings& s) { s.device = L"a"; }, [](PlotSettings& s) { s.paper = L"b"; }, {device, paper}},
        {[](PlotSettings& s) { s.rotation.reset(); }, [](PlotSettings& s) { s.rotation = 3; }, {}},
        {[](PlotSettings&) {}, [](PlotSettings& s) { s.rotation.reset(); }, {orientation}},
        {[](PlotSettings& s) {
             s.usesStandardScale = false;
             s.ratio = {0.02, 1};
         },
         [](PlotSettings&) {},
         {}},
        {[](PlotSettings& s) {
             s.ratio = {1, 100};
         },
         [](PlotSettings&) {},
         {scale}},
        {fit, [](PlotSettings&) {}, {scale}},
        {fit,
         [](PlotSettings& s) {
             s.standardScale = 0;
             s.ratio = {1, 7};
         },
         {}},
        {[](PlotSettings& s) { s.centred = true; },
         [](PlotSettings& s) {
             s.centred = true;
             s.offset = {9, 9};
         },
         {}},
        {[](PlotSettings& s) {
             s.offset = {1.5, 3};
         },
         [](PlotSettings&) {},
         {offset}},
        {[](PlotSettings& s) { s.view = L"v"; }, [](PlotSettings&) {}, {}},
        {[](PlotSettings& s) {
             s.area = 3;
             s.view = L"v";
         },
         [](PlotSettings& s) { s.area = 3; },
         {area}},
        {[](PlotSettings& s) {
             s.area = 4;
             s.window = {0, 0, 1, 1};
         },
         [](PlotSettings& s) {
             s.area = 4;
             s.window = {0, 0, 1, 2};
         },
         {area}},
        {[](PlotSettings& s) {
             s.paperUnits = 0;
             s.styleSheet = L"x";
             s.options[6] = true;
         },
         [](PlotSettings&) {},
         {units, style, options}},
    };
    for (const auto& each : cases) {
        PlotSettings wanted = usual();
        PlotSettings present = usual();
        each.wanted(wanted);
        each.present(present);
        EXPECT_EQ(differences(wanted, present), each.expected) << &each - cases;
    }
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
