#include "HostFixture.h"
#include "support/ToldBy.h"

namespace demo {

namespace {

using blattwart::ShortArray;
using blattwart::ValueArray;
using blattwart::test::toldBy;

TEST_F(HostTest, LayoutsComeByNameAndModelIsMarked) {
    const ObjectPtr document = open({L"Schnitt", L"Ansicht"});
    const ObjectPtr layouts = object(document, L"Layouts");
    EXPECT_EQ(names(layouts), (Names{L"Ansicht", L"Model", L"Schnitt"}));
    EXPECT_EQ(get(layout(document, L"schnitt"), L"TabOrder"), Value(std::int32_t{1}));
    EXPECT_EQ(get(layout(document, L"Model"), L"ModelType"), Value(true));
    EXPECT_EQ(get(item(layouts, std::int32_t{0}), L"Name"), Value(L"Ansicht"));
    EXPECT_EQ(errorOf([&] { layout(document, L"fehlt"); }), code(0x80200014));

    restart({.modelName = L"Modell"});
    const ObjectPtr german = open({L"A"});
    EXPECT_EQ(names(object(german, L"Layouts")), (Names{L"A", L"Modell"}));
    EXPECT_EQ(get(layout(german, L"Modell"), L"ModelType"), Value(true));
    EXPECT_EQ(errorOf([&] { layout(german, L"Model"); }), code(0x80200014));
}

TEST_F(HostTest, ActiveLayoutAndActiveSpaceAgree) {
    const ObjectPtr document = open({L"A", L"B"});
    const auto current = [&] { return get(object(document, L"ActiveLayout"), L"Name"); };
    put(document, L"ActiveLayout", layout(document, L"B"));
    EXPECT_EQ(current(), Value(L"B"));
    put(document, L"ActiveSpace", std::int32_t{1});
    EXPECT_EQ(current(), Value(L"Model"));
    EXPECT_EQ(call(document, L"GetVariable", {Value(L"TILEMODE")}), Value(std::int16_t{1}));
    put(document, L"ActiveSpace", std::int32_t{0});
    EXPECT_EQ(current(), Value(L"B"));

    const ObjectPtr other = open({L"B"}, L"Anders.dwg");
    EXPECT_NE(errorOf([&] { put(other, L"ActiveLayout", layout(document, L"B")); }), 0);
    put(document, L"ActiveLayout", layout(document, L"A"));
    EXPECT_EQ(current(), Value(L"A"));
    EXPECT_EQ(get(other, L"Active"), Value(true));
}

TEST_F(HostTest, TheSheetViewportAppearsWhenALayoutWasCurrent) {
    const ObjectPtr document = open({L"A", L"B"});
    const ObjectPtr block = object(layout(document, L"B"), L"Block");
    EXPECT_EQ(get(block, L"Count"), Value(std::int32_t{0}));
    put(document, L"ActiveLayout", layout(document, L"B"));
    const auto entities = block->enumerate(L"");
    ASSERT_EQ(entities.size(), 1u);
    EXPECT_EQ(get(entities[0], L"ObjectName"), Value(L"AcDbViewport"));
    Value types;
    Value values;
    call(entities[0], L"GetXData", {Value(L"Tarvix"), &types, &values});
    EXPECT_TRUE(types.isEmpty());
}

TEST_F(HostTest, PlotSettingsComeInMillimetres) {
    const ObjectPtr document = open({L"A"});
    Layout& data = *host_->activeDocument()->findLayout(L"A");
    PlotSettings settings = data.plotSettings();
    settings.device = L"Plotter.pc3";
    settings.paper = L"ISO_A3_(420.00_x_297.00_MM)";
    settings.paperWidth = 420;
    settings.paperHeight = 297;
    settings.units = 0;
    settings.rotation = 1;
    data.setPlotSettings(settings);

    const ObjectPtr a = layout(document, L"A");
    Value width(0.0);
    Value height(0.0);
    const auto readSize = [&] { call(a, L"GetPaperSize", {&width, &height}); };
    readSize();
    EXPECT_EQ(width, Value(420.0));
    EXPECT_EQ(height, Value(297.0));
    EXPECT_EQ(get(a, L"PlotRotation"), Value(std::int32_t{1}));
    const auto mediaName = [&] { return call(a, L"GetLocaleMediaName", {get(a, L"CanonicalMediaName")}); };
    EXPECT_NE(errorOf(mediaName), 0) << "the device is not installed";
    put(a, L"ConfigName", L"DWG To PDF.pc3");
    EXPECT_EQ(mediaName(), Value(L"ISO A4 (210.00 x 297.00 MM)")) << "another device has another paper";
    EXPECT_EQ(get(a, L"PlotRotation"), Value(std::int32_t{0}));
    put(a, L"CanonicalMediaName", L"ISO_A3_(420.00_x_297.00_MM)");

    call(a, L"RefreshPlotDeviceInfo");
    readSize();
    EXPECT_EQ(width, Value(420.0));
    for (const auto& wrong : {std::pair(L"ConfigName", L"None"),
                              {L"ConfigName", L"Plotter.pc3"},
                              {L"CanonicalMediaName", L"A3"},
                              {L"StyleSheet", L"acad.stb"}})
        EXPECT_EQ(errorOf([&] { put(a, wrong.first, Value(wrong.second)); }), hostError::invalidInput)
            << wrong.second;
    settings.device = L"none_device";
    data.setPlotSettings(settings);
    call(a, L"RefreshPlotDeviceInfo");
    readSize();
    EXPECT_NE(width, Value(420.0)) << "asking no device spoils the paper";
}

TEST_F(HostTest, CopiedPlotSettingsLeaveNameAndTabAlone) {
    open({L"A"}, L"Eins.dwg");
    Layout& data = *host_->activeDocument()->findLayout(L"A");
    PlotSettings settings = data.plotSettings();
    settings.plotType = 4;
    settings.offsetX = 5;
    settings.standardScale = 17;
    settings.scaleDrawing = 2;
    settings.windowTop = 99.5;
    data.setPlotSettings(settings);
    const ObjectPtr a = layout(object(application_, L"ActiveDocument"), L"A");
    const ObjectPtr document = open({L"B", L"C"}, L"Zwei.dwg");
    const ObjectPtr c = layout(document, L"C");
    call(c, L"CopyFrom", {Value(a)});
    EXPECT_EQ(host_->activeDocument()->findLayout(L"C")->plotSettings(), settings);
    EXPECT_EQ(get(c, L"Name"), Value(L"C"));
    EXPECT_EQ(get(c, L"TabOrder"), Value(std::int32_t{2}));
    Value lower;
    Value upper;
    call(c, L"GetWindowToPlot", {&lower, &upper});
    EXPECT_EQ(upper, Value(blattwart::DoubleArray{0, 99.5}));
    call(c, L"SetCustomScale", {Value(1.0), Value(33.0)});
    EXPECT_EQ(get(c, L"UseStandardScale"), Value(false));
    put(c, L"UseStandardScale", Value(true));
    put(c, L"StandardScale", Value(std::int32_t{26}));
    Value paper(0.0);
    Value drawing(0.0);
    call(c, L"GetCustomScale", {&paper, &drawing});
    EXPECT_EQ(drawing, Value(50.0));
    EXPECT_NE(errorOf([&] { call(c, L"CopyFrom", {Value(layout(document, L"Model"))}); }), 0);
}

TEST_F(HostTest, APlotIsAPdfOfThePapersSizeWithTheLayoutsName) {
    const ObjectPtr document = open({L"Grundriß Süd"});
    PlotSettings settings = host_->activeDocument()->findLayout(L"Grundriß Süd")->plotSettings();
    settings.device = L"DWG To PDF.pc3";
    settings.paperWidth = 420;
    settings.paperHeight = 297;
    settings.rotation = 1;
    host_->activeDocument()->findLayout(L"Grundriß Süd")->setPlotSettings(settings);
    const ObjectPtr plot = object(document, L"Plot");
    const std::wstring file = L"C:\\Projekte\\Plan.pdf";
    EXPECT_EQ(call(plot, L"PlotToFile", {Value(file)}), Value(true));
    const std::string real = "'" + host_->disk().realPath(file).string() + "'";
    EXPECT_NE(toldBy("pdfinfo " + real).find("Page size:       841.89 x 1190.55 pts"), std::string::npos);
    EXPECT_NE(toldBy("pdftotext " + real + " -").find("Plan.dwg - Grundriß Süd"), std::string::npos);

    put(plot, L"QuietErrorMode", Value(true));
    EXPECT_EQ(call(plot, L"PlotToFile", {Value(file)}), Value(false)) << "nothing is replaced";
    put(document, L"ActiveLayout", Value(layout(document, L"Model")));
    const ObjectPtr other = open({L"A"}, L"Zwei.dwg");
    EXPECT_NE(errorOf([&] { call(plot, L"PlotToFile", {Value(L"C:\\Projekte\\B.pdf")}); }), 0)
        << "another drawing is active";
    call(other, L"SetVariable", {Value(L"BACKGROUNDPLOT"), Value(std::int16_t{3})});
    call(document, L"Activate");
    const std::wstring late = L"C:\\Projekte\\Spät.pdf";
    EXPECT_EQ(call(plot, L"PlotToFile", {Value(late), Value(L"DWG To PDF.pc3")}), Value(true));
    EXPECT_FALSE(host_->disk().exists(late));
    host_->finishPlots();
    EXPECT_TRUE(host_->disk().exists(late));
}

TEST_F(HostTest, ExtendedDataComeBackInTheirTypes) {
    const ObjectPtr document = open({L"A"});
    Drawing& drawing = host_->activeDocument()->drawing();
    const auto add = [&](const char* type) {
        const Object& made = drawing.addEntity(drawing.findLayout(L"A")->block(), type, {textGroup(8, L"0")});
        return *call(document, L"HandleToObject", {Value(handleText(made.handle()))}).as<ObjectPtr>();
    };
    const ObjectPtr viewport = add("VIEWPORT");
    const ObjectPtr line = add("LINE");
    const std::wstring handle = *get(line, L"Handle").as<std::wstring>();
    const ShortArray types{1001, 1071, 1005, 1070, 1000};
    const ValueArray values{L"Tarvix", std::int16_t{21}, handle, std::int16_t{7}, L"Küche"};
    call(viewport, L"SetXData", {Value(types), Value(values)});

    Value readTypes;
    Value readValues;
    call(viewport, L"GetXData", {Value(L""), &readTypes, &readValues});
    EXPECT_EQ(readTypes, Value(types));
    const ValueArray expected{L"Tarvix", std::int32_t{21}, handle, std::int16_t{7}, L"Küche"};
    EXPECT_EQ(readValues, Value(expected));

    call(line, L"Delete");
    drawing.audit();
    call(viewport, L"GetXData", {Value(L"tarvix"), &readTypes, &readValues});
    EXPECT_EQ((*readValues.as<ValueArray>())[2], Value(L"0"));
}

}  // namespace

}  // namespace demo
