#include "PlanWorld.h"

namespace blattwart::test {

namespace {

using demo::Plots;

/// Three layouts of two drawings are plotted while model space of a third one is shown. The host plots in the
/// background and asks for the page setup of new layouts, as it is set up.
class Plotting : public PlanWorld {
  public:
    explicit Plotting(demo::HostOptions options = {}, const std::wstring& device = pdfDevice)
        : PlanWorld(std::move(options)) {
        profile().showsPageSetup = true;
        a = open(L"C:\\P", L"A.dwg", {L"eins", L"zwei", L"drei"});
        b = open(L"C:\\P", L"B.dwg", {L"eins", L"zwei"});
        c = open(L"C:\\P", L"C.dwg", {L"eins"});
        for (const auto& document : {a, b})
            for (demo::Layout* layout : document->drawing().layouts())
                change(document, layout->name(), [&](demo::PlotSettings& s) { s.device = device; });
        b->drawing().setCurrentLayout(b->drawing().modelLayout());
        read();
        sheets = {{number(L"A.dwg", L"zwei"), L"C:\\P\\A-zwei.pdf"},
                  {number(L"B.dwg", L"eins"), L"C:\\P\\B-eins.pdf"},
                  {number(L"A.dwg", L"drei"), L"C:\\P\\A-drei.pdf"}};
        calls.clear();
    }

    demo::Profile& profile() { return *host().options().profile; }
    void plot(
        bool replace = true, const std::function<void()>& meanwhile = [] {}) {
        pdf.begin(sheets, replace);
        while (pdf.step()) meanwhile();
    }
    std::wstring result(std::size_t sheet) { return pdf.results().at(sheets[sheet].row); }
    /// What plotting may change in the host, and does not in the end.
    std::wstring state() {
        std::wstring text = host().activeDocument()->name() + std::to_wstring(profile().backgroundPlot) +
                            std::to_wstring(profile().showsPageSetup);
        for (const auto& document : host().documents())
            text += L"|" + document->drawing().currentLayout().name() +
                    std::to_wstring(document->quietPlotErrors);
        return text;
    }
    bool isPdf(const std::wstring& file) {
        if (!world.files.exists(file)) return false;
        const auto reader = world.files.open(file);
        const auto bytes = reader->read(0, static_cast<std::size_t>(reader->size()));
        const std::string text(bytes.begin(), bytes.end());
        return text.starts_with("%PDF-") && text.ends_with("%%EOF\n");
    }
    void write(const std::wstring& file, const std::string& text) {
        world.files.fill(file, {text.begin(), text.end()});
    }

    demo::DocumentPtr a;
    demo::DocumentPtr b;
    demo::DocumentPtr c;
    std::vector<PdfSheet> sheets;
};

TEST(PdfRunTest, WhatIsNoPdfIsToldAndTheFileBeforeComesBack) {
    const struct {
        Plots plots;
        const wchar_t* result;
        const wchar_t* device = pdfDevice;  // the only one that is installed
    } cases[] = {
        {Plots::notAtAll, L"nicht geplottet: AutoCAD hat keine Datei geschrieben"},
        {Plots::nothing, L"nicht geplottet: AutoCAD hat keine Datei geschrieben"},
        {Plots::cutOff, L"nicht geplottet: AutoCAD hat keine PDF-Datei geschrieben"},
        {Plots::asOtherKind, L"nicht geplottet: AutoCAD hat keine PDF-Datei geschrieben"},
        {Plots::asAsked, L"nicht geplottet: AutoCAD hat keine PDF-Datei geschrieben", L"Plotter.pc3"},
    };
    for (const auto& each : cases) {
        Plotting world({.plotDevices = {each.device}, .plots = each.plots}, each.device);
        for (PdfSheet& sheet : world.sheets) sheet.byPdfDevice = each.device != std::wstring(pdfDevice);
        const std::wstring before = world.state();
        world.write(L"C:\\P\\A-zwei.pdf", "alt");
        world.plot();
        EXPECT_EQ(world.result(0), each.result);
        EXPECT_EQ(world.pdf.statusText(), L"0 von 3 Layouts geplottet, 3 nicht geplottet.");
        EXPECT_EQ(world.world.files.open(L"C:\\P\\A-zwei.pdf")->size(), 3U);
        EXPECT_EQ(world.world.files.all().size(), 1U);
        EXPECT_EQ(world.state(), before);
    }
    Plotting late({.plots = Plots::late});
    late.plot(true, [&] { late.host().finishPlots(); });
    EXPECT_EQ(late.pdf.statusText(), L"3 von 3 Layouts geplottet.");
}

TEST(PdfRunTest, AReasonStandsBesideEachLayoutThatWasLeftOut) {
    Plotting world;
    PlanWorld::change(world.a, L"zwei", [](demo::PlotSettings& s) { s.device = L"HP DesignJet"; });
    const auto denied = [&](std::wstring_view call) { return call == L"Files.rename"; };
    world.write(L"C:\\P\\A-drei.pdf", "alt");
    world.world.files.fails = denied;
    world.plot();
    EXPECT_EQ(world.result(0), L"nicht geplottet: Plotgerät ist kein PDF-Gerät");
    EXPECT_EQ(world.result(1), L"fertig");
    EXPECT_EQ(world.result(2), L"nicht geplottet: C:\\P\\A-drei.pdf ist in einem anderen Programm geöffnet");
    EXPECT_EQ(std::ranges::count(world.calls.list(), std::wstring(L"put Document.ActiveLayout")), 2)
        << "none is shown that is not plotted";
    world.sheets[0].byPdfDevice = true;
    world.write(L"C:\\P\\A-drei.pdf.alt", "älter");
    world.world.files.fails = [](std::wstring_view) { return false; };
    world.plot();
    EXPECT_EQ(world.result(0), L"fertig");
    EXPECT_EQ(world.result(2), L"nicht geplottet: C:\\P\\A-drei.pdf.alt ist noch vorhanden");

    world.plot(true, [&] {
        if (world.b->closed()) return;
        world.host().close(world.b);
    });
    EXPECT_EQ(world.result(1), L"nicht geplottet: Zeichnung nicht mehr geöffnet");
    EXPECT_EQ(world.result(0), L"fertig");
    world.plot();
    EXPECT_EQ(world.pdf.message(),
              L"In AutoCAD wurden Layouts geändert: B.dwg. Es wurde nichts ausgeführt, die Planliste ist neu "
              L"gelesen. Bitte prüfen Sie die Auswahl!");
    std::erase_if(world.sheets, [](const PdfSheet& sheet) { return sheet.file == L"C:\\P\\B-eins.pdf"; });
    world.plot(true, [&] {
        if (world.result(0) == L"fertig") world.host().sendCommand(world.a, L"_.-LAYOUT\r");
    });
    EXPECT_EQ(world.result(1), L"nicht geplottet: in AutoCAD läuft ein Befehl");
}

TEST(PdfRunTest, TheHostIsAsBeforeAndNoFileIsLostAlsoAfterAFailureAtAnyCall) {
    Plotting undisturbed;
    const std::wstring before = undisturbed.state();
    undisturbed.plot();
    EXPECT_EQ(undisturbed.state(), before);
    EXPECT_EQ(undisturbed.world.settings.values[L"PlanRestore"], L"");
    EXPECT_EQ(undisturbed.calls.count(L"Activate"), 3U) << "each drawing once, and the first one again";

    Plotting twice;
    twice.pdf.begin(twice.sheets, true);
    while (twice.result(1) != L"fertig") twice.pdf.step();
    twice.failNext(L"put Document.ActiveLayout", refused, 2);
    PlanWorld::finish(twice.pdf);
    EXPECT_NE(twice.state(), before);
    EXPECT_TRUE(twice.restore.finish());
    EXPECT_EQ(twice.state(), before) << "the active drawing, too";
    const std::size_t all = undisturbed.calls.count();
    for (std::size_t call = 1; call <= all; ++call) {
        for (const auto& [error, last] :
             {std::pair(refused, call), std::pair(hresult::callCanceled, call),
              std::pair(hresult::callRejected, call + 500), std::pair(hresult::callCanceled, call + 500)}) {
            SCOPED_TRACE(std::to_string(call) + " to " + std::to_string(last));
            Plotting world;
            world.write(L"C:\\P\\A-drei.pdf", "alt");
            const auto moment = error == hresult::callRejected ? demo::Moment::before : demo::Moment::after;
            world.failFrom(call, last, error, moment);
            world.plot();
            world.calls.heal();
            if (world.state() != before) {
                EXPECT_NE(world.pdf.message(), L"");
                EXPECT_TRUE(world.restore.outstanding());
            }
            // Where the page setup could not be hidden it waits for the user.
            world.host().cancelDialog();
            if (world.restore.outstanding()) world.restore.finish();
            EXPECT_EQ(world.state(), before);
            for (const PdfSheet& sheet : world.sheets) {
                const auto found = world.pdf.results().find(sheet.row);
                EXPECT_EQ(found != world.pdf.results().end() && found->second == L"fertig",
                          world.isPdf(sheet.file));
            }
            EXPECT_TRUE(world.world.files.exists(L"C:\\P\\A-drei.pdf"));
            EXPECT_FALSE(world.world.files.exists(L"C:\\P\\A-drei.pdf.alt"));
        }
    }
}

TEST(PdfRunTest, AHostThatDiesGetsItsOwnSettingsBackWithTheNextAttach) {
    Plotting undisturbed;
    undisturbed.plot();
    for (std::size_t call = 1; call <= undisturbed.calls.count(); ++call) {
        SCOPED_TRACE(call);
        Plotting world;
        const std::shared_ptr<demo::Profile> profile = world.host().options().profile;
        world.calls.goneFrom(call, demo::Moment::after);
        world.plot();
        EXPECT_EQ(world.pdf.message().find(L"zurückgenommen"), std::wstring::npos);
        world.calls.heal();
        world.demo.start();
        world.open(L"C:\\P", L"Neu.dwg", {L"eins"});
        // Another session of the program.
        basAutoCAD next(world.world.platform, world.records, world.events);
        next.ConnectAutoCAD();
        EXPECT_EQ(profile->backgroundPlot, 2);
        EXPECT_TRUE(profile->showsPageSetup);
        EXPECT_EQ(world.world.settings.values[L"PlanRestore"], L"");
    }
    PlanWorld broken;
    broken.open(L"C:\\P", L"Neu.dwg", {L"eins"});
    broken.host().options().profile->backgroundPlot = 0;
    broken.world.settings.values[L"PlanRestore"] = L";CTAB=1;;BACKGROUNDPLOT=9;BACKGROUNDPLOT;=2";
    broken.read();
    EXPECT_EQ(broken.host().options().profile->backgroundPlot, 0) << "a broken memory is none";
}

}  // namespace

}  // namespace blattwart::test
