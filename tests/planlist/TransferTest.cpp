#include "PlanWorld.h"

namespace blattwart::test {

namespace {

/// The source in A.dwg, two targets there and two in B.dwg.
class Transferring : public PlanWorld {
  public:
    explicit Transferring(demo::HostOptions options = {}, const Names& withDevice = {L"b2"})
        : PlanWorld(std::move(options)) {
        a = open(L"C:\\P", L"A.dwg", {L"Quelle", L"a1", L"a2"});
        b = open(L"C:\\P", L"B.dwg", {L"b1", L"b2"});
        change(a, L"Quelle", [](demo::PlotSettings& s) {
            s.device = L"DWG To PDF.pc3";
            s.paper = L"ISO_A3_(420.00_x_297.00_MM)";
            s.paperWidth = 420;
            s.paperHeight = 297;
            s.rotation = 1;
            s.plotType = plotArea::window;
            s.windowRight = 100;
            s.windowTop = 50;
            s.styleSheet = L"monochrome.ctb";
            s.scaleDrawing = 50;
            s.standardScale = 26;
            s.flags |= demo::plotFlag::hidden;
            s.offsetX = 5;
        });
        for (const std::wstring& layout : withDevice)
            change(layout.starts_with(L'a') ? a : b, layout,
                   [](demo::PlotSettings& s) { s.device = L"DWG To PDF.pc3"; });
        prepare();
    }

    static demo::PlotSettings settingsOf(const demo::DocumentPtr& document, const wchar_t* layout) {
        return document->findLayout(layout)->plotSettings();
    }
    /// Reads everything anew.
    void prepare() {
        read();
        source = number(L"A.dwg", L"Quelle");
        targets = {number(L"A.dwg", L"a1"), number(L"A.dwg", L"a2"), number(L"B.dwg", L"b1"),
                   number(L"B.dwg", L"b2")};
        settings.clear();
        settings[source] = readPlotSettings(plan.find(source).row->layout);
        for (const int row : targets) settings[row] = readPlotSettings(plan.find(row).row->layout);
        calls.clear();
    }
    void begin() { transfer.begin(source, targets, settings); }
    void carryOver() {
        begin();
        finish(transfer);
    }
    PlanGroup& group() { return transfer; }
    /// What counts of the targets' settings: a window only where it is plotted.
    std::vector<demo::PlotSettings> now() const {
        std::vector<demo::PlotSettings> all{settingsOf(a, L"a1"), settingsOf(a, L"a2"), settingsOf(b, L"b1"),
                                            settingsOf(b, L"b2")};
        for (demo::PlotSettings& each : all)
            if (each.plotType != plotArea::window) each.windowRight = each.windowTop = 0;
        return all;
    }
    std::wstring note(std::size_t target) { return transfer.notes().at(targets[target]); }

    demo::DocumentPtr a;
    demo::DocumentPtr b;
    int source = 0;
    std::vector<int> targets;
    SettingsByRow settings;
};

TEST(TransferTest, EveryLayoutTakesAllAndGetsBackWhatItHad) {
    Transferring world({.copyTakesName = true});
    const auto before = world.now();
    world.carryOver();
    const demo::PlotSettings source = Transferring::settingsOf(world.a, L"Quelle");
    for (const demo::PlotSettings& target : world.now()) EXPECT_EQ(target, source);
    EXPECT_EQ(world.transfer.result().statusText(), L"Seiteneinrichtung übertragen.");
    EXPECT_EQ(PlanWorld::layouts(world.b), (Names{L"b1", L"b2"}));
    EXPECT_EQ(world.calls.count(L"RefreshPlotDeviceInfo"), 1U) << "one for the other drawing";
    EXPECT_EQ(world.rows()[1],
              L"A.dwg|2|a1|DWG To PDF.pc3|ISO A3 (420.00 x 297.00 MM)|monochrome.ctb|geändert");

    PlanWorld::takeBack(world.transfer);
    // Three had no device, which cannot be put.
    EXPECT_EQ(world.transfer.result().reasons.size(), 3U);
    EXPECT_TRUE(world.transfer.result().message().ends_with(
        L"Layout „b1“: Plotgerät und Papier bleiben, vorher war kein Plotgerät gewählt."));
    EXPECT_EQ(world.now()[3], before[3]);
    EXPECT_EQ(world.now()[2].device, source.device);
    EXPECT_EQ(world.now()[2].styleSheet, before[2].styleSheet);
    EXPECT_TRUE(world.undo.empty());

    world.prepare();
    world.failNext(L"put Layout.Name", refused);
    world.carryOver();
    EXPECT_EQ(world.note(0), L"heißt jetzt „Quelle (2)“: Ungültige Eingabe");
    EXPECT_TRUE(world.rows()[1].starts_with(L"A.dwg|2|Quelle (2)|DWG To PDF.pc3|"));
    PlanWorld::takeBack(world.transfer);
    EXPECT_TRUE(world.undo.empty());
}

TEST(TransferTest, WhatDoesNotGoIsSaidBesideTheLayout) {
    Transferring world({.plotDevices = {L"DWG To PDF.pc3", L"Plotter.pc3"}});
    PlanWorld::change(world.a, L"Quelle", [](demo::PlotSettings& s) {
        s.styleSheet = L"fremd.stb";
        s.plotType = plotArea::view;
        s.view = L"Süd";
    });
    world.prepare();
    const TransferPreview preview =
        previewTransfer(world.plan, world.source, world.targets, world.settings, world.world.locale);
    EXPECT_EQ(preview.rows[0].note, L"Quelle");
    EXPECT_EQ(preview.rows[1].note, L"Plotgerät und Papier nicht rückgängig zu machen");
    EXPECT_EQ(preview.rows[4].note, L"Plotbereich „Ansicht“ bleibt in seiner Zeichnung");
    EXPECT_EQ(preview.rows[4].cells[2], L"Hochformat → Querformat");
    EXPECT_EQ(preview.rows[4].cells[5], L"Layout");
    world.carryOver();
    EXPECT_EQ(Transferring::settingsOf(world.a, L"a1").view, L"Süd");
    EXPECT_EQ(Transferring::settingsOf(world.b, L"b1").plotType, 5);
    EXPECT_EQ(world.note(2), L"Plotstil nicht übernommen: Ungültige Eingabe");
    EXPECT_EQ(world.transfer.result().message(), L"Nicht alles wurde übertragen, siehe Spalte „Hinweis“.");

    // What cannot be read stays each layout's own in another drawing, and is not known when taken back.
    PlanWorld::change(world.a, L"Quelle", [](demo::PlotSettings& s) { s.plotType = 1; });
    PlanWorld::change(world.b, L"b1", [](demo::PlotSettings& s) { s.styleSheet = L"x.ctb"; });
    world.prepare();
    world.settings[world.source].styleSheet.reset();
    world.settings[world.targets[3]].paperUnits.reset();
    world.carryOver();
    EXPECT_EQ(world.note(2) + world.note(3), L"übertragenübertragen");
    EXPECT_EQ(Transferring::settingsOf(world.b, L"b2").styleSheet, L"");
    PlanWorld::takeBack(world.transfer);
    EXPECT_EQ(world.transfer.result().reasons,
              Names{L"Layout „b2“: Nicht lesbare Einstellungen können geändert bleiben."});

    PlanWorld::change(world.a, L"Quelle", [](demo::PlotSettings& s) { s.device = L"Alt.pc3"; });
    world.prepare();
    world.carryOver();
    EXPECT_EQ(world.note(3), L"Plotgerät nicht übernommen: Ungültige Eingabe");
    EXPECT_EQ(Transferring::settingsOf(world.b, L"b2").paper, L"ISO_A3_(420.00_x_297.00_MM)")
        << "nothing is put for a device that is not there";
    PlanWorld::change(world.a, L"Quelle", [](demo::PlotSettings& s) { s.device = L""; });
    world.prepare();
    world.carryOver();
    EXPECT_EQ(world.note(2), L"nicht übertragen: die Quelle hat kein Plotgerät");
    EXPECT_EQ(Transferring::settingsOf(world.a, L"a1").device, L"");
    PlanWorld::change(world.a, L"a1", [](demo::PlotSettings& s) { s.rotation = 3; });
    world.failNext(L"get Layout.ConfigName", hresult::callCanceled);
    PlanWorld::takeBack(world.transfer);
    EXPECT_EQ(world.transfer.result().end, PlanWriteResult::End::noAnswer);
    PlanWorld::takeBack(world.transfer);
    EXPECT_EQ(world.transfer.result().reasons.front(),
              L"Layout „a1“: Seiteneinrichtung inzwischen geändert.");
}

TEST(TransferTest, AFailureAtAnyCallLeavesNothingThatCannotBeTakenBack) {
    const auto make = [] {
        // Each target has a device, so that all can be put back.
        auto world = std::make_unique<Transferring>(demo::HostOptions{}, Names{L"a1", L"a2", L"b1", L"b2"});
        world->begin();
        return world;
    };
    expectFailuresCanBeTakenBack(make,
                                 {{refused, 1}, {hresult::callCanceled, 1}, {hresult::callCanceled, 500}});
}

}  // namespace

}  // namespace blattwart::test
