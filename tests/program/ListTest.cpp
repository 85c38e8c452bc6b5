#include <algorithm>

#include "Program.h"
#include "support/DrawingFile.h"

namespace blattwart::test {
namespace {

class List : public Program {
  protected:
    List() {
        plan = host().addDocument(L"C:\\Haus 1", L"Plan.dwg", {L"Blatt 2", L"Blatt 10", L"ärmel"});
        host().addDocument(L"C:\\Haus 2", L"Größe.dwg", {L"Übersicht"});
        set(L"Blatt 2", L"DWG To PDF.pc3", L"ISO_A3", 1, L"acad.ctb");
        set(L"Blatt 10", L"Fehlt.pc3", L"ISO_A4", 3);
        set(L"ärmel", L"none_device", L"Letter", 0);
        start();
    }

    void set(const wchar_t* layout, const wchar_t* device, const wchar_t* paper, int rotation,
             const wchar_t* styleSheet = L"") {
        demo::PlotSettings settings;
        settings.device = device;
        settings.paper = paper;
        settings.rotation = rotation;
        settings.styleSheet = styleSheet;
        plan->drawing().findLayout(layout)->setPlotSettings(settings);
    }
    /// Keys of the rows in displayed order.
    std::wstring keys() {
        std::wstring text;
        for (int i = 0; i < list().count(); ++i) text += (i == 0 ? L"" : L" ") + list().row(i).key();
        return text;
    }
    std::vector<std::wstring> values(std::wstring_view key) {
        std::vector<std::wstring> texts;
        for (int i = 2; i <= static_cast<int>(list().columns().size()); ++i)
            texts.push_back(list().find(key)->column(i));
        return texts;
    }
    /// Title and headers with their widths.
    std::wstring columns() {
        std::wstring text = form().lblTitle[1].text();
        for (const ListColumn& column : list().columns())
            text += L" " + column.text + L"=" + std::to_wstring(static_cast<int>(column.width));
        return text;
    }
    std::vector<int> positions() {
        std::vector<int> result;
        for (const ListColumn& column : list().columns()) result.push_back(column.position);
        return result;
    }
    void select(std::wstring_view key) { list().userSelects({list().find(key)}, list().find(key)); }
    void clickHeader(int column) { list().events.columnClick(column); }
    void restart() {
        form().Form_Unload();
        startAgain();
    }

    demo::DocumentPtr plan;
    // The tree: A, Z1 Plan (L2 Blatt 10, L3 Blatt 2, L4 ärmel), Z5 Größe (L6 Übersicht), B (D7, D8).
};

TEST_F(List, ShowsWhatIsSelected) {
    click(L"A");
    EXPECT_EQ(columns(), L"Zeichnungen: Dateiname=5000");
    EXPECT_EQ(keys(), L"Z5 Z1");
    EXPECT_TRUE(list().find(L"Z5")->bold());
    EXPECT_FALSE(list().find(L"Z1")->bold());

    click(L"Z1");
    EXPECT_EQ(columns(),
              L"Layouts: Bezeichnung=2500 Plotgerät=2500 Papierformat=2500 Ausrichtung=2500 Plotstil=2500");
    EXPECT_EQ(keys(), L"L4 L3 L2");
    using Texts = std::vector<std::wstring>;
    EXPECT_EQ(values(L"L3"), (Texts{L"DWG To PDF.pc3", L"ISO A3", L"Querformat", L"acad.ctb"}));
    // A device that is not there cannot tell the readable name.
    EXPECT_EQ(values(L"L2"), (Texts{L"Fehlt.pc3", L"ISO_A4", L"Querformat (auf dem Kopf)", L"Kein"}));
    EXPECT_EQ(values(L"L4"), (Texts{L"None", L"Letter", L"Hochformat", L"Kein"}));
    click(L"Z5");
    EXPECT_TRUE(list().find(L"L6")->bold());

    click(L"L3");
    EXPECT_EQ(columns(), L"Layout-Details: Beschreibung=2500 Wert=2500");
    EXPECT_EQ(list().find(L"ILayoutname")->column(2), L"Blatt 2");
    click(L"B");
    EXPECT_EQ(columns(), L"Vorlagen: Dateiname=5000");
    EXPECT_EQ(keys(), L"D7 D8");
    for (const wchar_t* key : {L"D7", L"D8"}) {
        click(key);
        EXPECT_EQ(columns(), L"Vorlage-Details: Beschreibung=2500 Wert=2500");
        EXPECT_EQ(keys(), L"IDateiname IOrdner");
        EXPECT_EQ(list().find(L"IDateiname")->column(2), tree().selected()->text());
        EXPECT_EQ(list().find(L"IOrdner")->column(2), L"C:\\Vorlagen");
    }
}

TEST_F(List, ShowsATemplatesPictureWhenItHasComeAndTheTemplateIsStillSelected) {
    world.files.fill(L"C:\\Vorlagen\\Plan A3.dwt", drawing(2, dib()));
    world.files.fill(L"C:\\Vorlagen\\Rahmen.dwg", drawing(6, png()));
    const auto width = [this] {
        const auto& picture = form().picPreview.picture();
        return picture ? picture->width : 0;
    };
    click(L"D7");
    EXPECT_EQ(width(), 0) << "it is being read";
    click(L"D8");
    EXPECT_EQ(world.worker.waiting(), 1u) << "what is not wanted any more waits nowhere";
    world.worker.finishOne();
    EXPECT_EQ(width(), 0) << "that is the other one's";
    world.worker.finishOne();
    EXPECT_EQ(width(), 256);
    EXPECT_EQ(form().picPreview.name(), L"Vorschau von Rahmen.dwg");
    click(L"D7");
    EXPECT_EQ(width(), 5) << "read before";
    click(L"B");
    EXPECT_EQ(width(), 0);
    world.worker.finishOne();
    EXPECT_EQ(width(), 0);
    EXPECT_EQ(world.worker.waiting(), 0u);

    click(L"D8");
    const auto before = form().picPreview.picture();
    world.worker.finishOne();
    EXPECT_EQ(form().picPreview.picture(), before) << "the same file is not read again";
    world.files.fill(L"C:\\Vorlagen\\Rahmen.dwg", drawing(2, dib()));
    refresh();
    world.worker.finishOne();
    EXPECT_EQ(width(), 5);
    world.worker.refuses = true;
    refresh();
    EXPECT_EQ(width(), 5);
    EXPECT_TRUE(world.messages.shown.empty());
    world.worker.refuses = false;
    for (const bool denied : {true, false}) {
        world.files.fails = [denied](std::wstring_view call) { return denied && call == L"Files.open"; };
        refresh();
        EXPECT_EQ(width(), denied ? 5 : 0);
        world.worker.finishOne();
        EXPECT_EQ(width(), denied ? 0 : 5);
    }
    world.files.fill(L"C:\\Vorlagen\\Rahmen.dwg", {});
    refresh();
    world.worker.finishOne();
    EXPECT_EQ(width(), 0) << "it holds none any more";
}

TEST_F(List, KeepsSoManyPicturesAndNoMore) {
    PictureBox box;
    TemplatePictures pictures(box, world.platform);
    const auto file = [](int number) { return L"C:\\Viele\\" + std::to_wstring(number) + L".dwt"; };
    const auto look = [&](int number) {
        pictures.show(file(number));
        const bool atOnce = box.picture() != nullptr;
        world.worker.finishOne();
        EXPECT_TRUE(box.picture());
        return atOnce;
    };
    for (int i = 0; i < 65; ++i) {
        world.files.fill(file(i), drawing(6, png()));
        EXPECT_FALSE(look(i));
        if (i > 0) {
            EXPECT_TRUE(look(1)) << "used again and again";
        }
    }
    EXPECT_FALSE(look(0)) << "the oldest of 65";
    EXPECT_TRUE(look(64));
    Bytes large = png();
    large.resize(40U << 20);
    for (const int i : {0, 1}) world.files.fill(file(i), drawing(6, large));
    look(0);
    look(1);
    EXPECT_TRUE(look(1));
    EXPECT_FALSE(look(0)) << "both together are too large";
}

TEST_F(List, KeepsWidthsPerKindAndOverRestarts) {
    click(L"Z1");
    list().userResizesColumn(2, 3210.4F);
    click(L"L3");
    list().userResizesColumn(1, 0);
    click(L"D7");
    EXPECT_EQ(columns(), L"Vorlage-Details: Beschreibung=2500 Wert=2500");
    const auto expectWidths = [&] {
        click(L"Z5");
        EXPECT_EQ(list().columns()[1].width, 3210);
        click(L"L3");
        EXPECT_EQ(list().columns()[0].width, 0);
    };
    expectWidths();
    list().userResizesColumn(2, 1234);
    restart();
    expectWidths();
    EXPECT_EQ(list().columns()[1].width, 1234) << "also of the list that was shown at the end";

    // A negative width counts as none; one that no column can have does no harm.
    form().Form_Unload();
    world.settings.values[L"Col_2_0"] = L"-5";
    world.settings.values[L"Col_2_1"] = L"2147483647";
    startAgain();
    click(L"Z1");
    EXPECT_EQ(list().columns()[0].width, 2500);
    click(L"A");
    EXPECT_EQ(columns(), L"Zeichnungen: Dateiname=5000");
    EXPECT_EQ(main->views->tree.CurrentNodeKind, L"A");
}

TEST_F(List, KeepsTheOrderOfItsColumnsOverRestarts) {
    const std::vector<int> order{2, 0, 1, 4, 3};
    click(L"Z1");
    list().setColumnPositions(order);
    click(L"A");
    click(L"Z1");
    EXPECT_EQ(positions(), order);
    restart();
    EXPECT_EQ(world.settings.values[L"ColOrderZ"], L"2,0,1,4,3");
    click(L"Z1");
    EXPECT_EQ(positions(), order);
}

TEST_F(List, DamagedOrdersDoNoHarm) {
    struct Case {
        const wchar_t* stored;
        std::vector<int> shown;
    };
    const std::vector<int> unchanged{0, 1, 2, 3, 4};
    for (const Case& c :
         {Case{L"", unchanged}, Case{L"2,0", {2, 0, 1, 3, 4}}, Case{L"4,3,2,1,0,5", {4, 3, 2, 1, 0}},
          Case{L"1,1", unchanged}, Case{L"4,4,4,4,4", unchanged}, Case{L"1,-1,3", {1, 0, 2, 3, 4}},
          Case{L"3,99999999999", {3, 0, 1, 2, 4}}, Case{L"5", unchanged}, Case{L"1e400", unchanged},
          Case{L"2,x,1", {2, 0, 1, 3, 4}}, Case{L"2,,1", {2, 0, 1, 3, 4}}, Case{L"x", unchanged}}) {
        click(L"A");
        world.settings.values[L"ColOrderZ"] = c.stored;
        click(L"Z1");
        EXPECT_EQ(positions(), c.shown) << std::string(c.stored, c.stored + std::wcslen(c.stored));
        EXPECT_EQ(list().count(), 3);
        list().setColumnPositions(unchanged);
    }
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(List, SortsByTheHeaderThatIsClicked) {
    click(L"Z1");
    EXPECT_EQ(keys(), L"L4 L3 L2");
    clickHeader(1);
    EXPECT_EQ(keys(), L"L4 L3 L2");
    clickHeader(1);
    EXPECT_EQ(keys(), L"L2 L3 L4");
    clickHeader(1);
    EXPECT_EQ(keys(), L"L4 L3 L2");
    clickHeader(2);
    EXPECT_EQ(keys(), L"L3 L2 L4");

    // Details stand in their own order until the user wants it otherwise.
    click(L"L3");
    const std::wstring own = keys();
    EXPECT_TRUE(own.starts_with(L"ILayoutname IPlotter IPapierformat IPapiergroesse"));
    EXPECT_FALSE(list().sorted());
    clickHeader(1);
    EXPECT_TRUE(keys().starts_with(L"IAusrichtung "));
    click(L"L2");
    EXPECT_TRUE(list().sorted());
    click(L"Z1");
    EXPECT_TRUE(list().sorted());
    click(L"L3");
    EXPECT_EQ(keys(), own);
}

TEST_F(List, KeepsTheSelectionOverRefreshes) {
    click(L"Z1");
    list().userSelects({list().find(L"L2"), list().find(L"L4")}, list().find(L"L4"));
    refresh();
    EXPECT_EQ(list().selectedItems(), (std::vector{list().find(L"L4"), list().find(L"L2")}));
    EXPECT_EQ(list().focused(), list().find(L"L4"));
    click(L"L3");
    EXPECT_EQ(list().selected(), nullptr);
    select(L"IPlotstil");
    refresh();
    click(L"L2");
    EXPECT_EQ(list().selected(), list().find(L"IPlotstil"));
    click(L"D7");
    EXPECT_EQ(list().selected(), nullptr);
}

TEST_F(List, ReadsTheHostOnceForEachClick) {
    for (int drawings = 2; drawings <= 4; ++drawings) {
        click(L"A");
        calls.clear();
        click(L"Z1");
        EXPECT_EQ(calls.count(L"ConfigName"), 3U);
        EXPECT_EQ(calls.count(L"Documents"), 1U);
        calls.clear();
        main->views->FillListForNode();
        const std::size_t filled = hostCalls(calls);
        EXPECT_LE(filled, 4U + 2U * static_cast<unsigned>(drawings) + 6U * 3U);
        RecordProperty("layoutList" + std::to_string(drawings), static_cast<int>(filled));
        // The same name in another folder costs most.
        host().addDocument(L"C:\\Haus " + std::to_wstring(drawings + 2), L"Plan.dwg", {L"Blatt"});
    }
    for (const wchar_t* key : {L"B", L"D7"}) {
        calls.clear();
        click(key);
        EXPECT_EQ(hostCalls(calls), 0U);
    }
}

TEST_F(List, EscEndsTheReadingOfLayouts) {
    world.readings.escAfter = 1;
    click(L"Z1");
    EXPECT_EQ(list().count(), 3);
    EXPECT_EQ(values(L"L2")[0], L"Fehlt.pc3");
    EXPECT_EQ(values(L"L3")[0], L"");
    EXPECT_EQ(world.readings.begun, world.readings.ended);
}

}  // namespace
}  // namespace blattwart::test
