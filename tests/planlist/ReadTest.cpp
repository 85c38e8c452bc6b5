#include "PlanWorld.h"

namespace blattwart::test {

namespace {

std::wstring numbered(const wchar_t* stem, int number) {
    return stem + std::to_wstring(number);
}

class ReadTest : public testing::Test, public PlanWorld {
  protected:
    void setPlot(const demo::DocumentPtr& document, const std::wstring& layout, const std::wstring& paper) {
        change(document, layout, [&](demo::PlotSettings& settings) {
            settings.device = L"DWG To PDF.pc3";
            settings.paper = paper;
            settings.styleSheet = L"büro.ctb";
        });
    }
};

TEST_F(ReadTest, RowsSayWhatTheHostHas) {
    const auto a = open(L"C:\\P\\Haus", L"Plan.dwg", {L"Grundriss 10", L"Grundriss 2"});
    setPlot(a, L"Grundriss 10", L"ISO_A3");
    a->show(*a->findLayout(L"Grundriss 2"));
    const auto b = open(L"D:\\Q\\Haus", L"plan.dwg", {L"A"});
    b->setReadOnly();
    b->setModified();
    b->show(b->drawing().modelLayout());
    open(L"C:\\P\\Hof", L"Plan.dwg", {L"B"});
    const auto twice = open(L"C:\\P", L"Halle.dwg", {L"C"});
    open(L"C:\\P", L"Halle.dwg", {L"c"});
    host().newDocument();
    host().options().modelName = L"Modell";
    read();
    EXPECT_EQ(reader.statusText(), L"");
    EXPECT_EQ(rows(), (Names{L"Halle.dwg|1|C|aktuell", L"Halle.dwg (2)|1|c|aktuell",
                             L"Plan.dwg (C:\\P\\Haus)|1|Grundriss 10|DWG To PDF.pc3|ISO A3|büro.ctb|",
                             L"Plan.dwg (C:\\P\\Haus)|2|Grundriss 2|aktuell",
                             L"plan.dwg (D:\\Q\\Haus)|1|A|geändert, schreibgeschützt",
                             L"Plan.dwg (Hof)|1|B|aktuell", L"Zeichnung1.dwg|1|Layout1|nie gespeichert"}));
}

TEST_F(ReadTest, ReadingAnewKeepsRowsAndAsksNothingTwice) {
    constexpr int drawings = 10;
    constexpr int layouts = 20;
    Names names;
    for (int i = 0; i < layouts; ++i) names.push_back(numbered(L"Plan ", i));
    std::vector<demo::DocumentPtr> documents;
    for (int i = 0; i < drawings; ++i) {
        documents.push_back(open(L"C:\\P", numbered(L"Z", i) + L".dwg", names));
        for (const std::wstring& name : names) setPlot(documents.back(), name, numbered(L"ISO_A", i));
    }
    autoCAD.ConnectAutoCAD();
    reader.begin();
    for (int step = 0; step <= drawings; ++step) reader.step();
    calls.clear();
    reader.begin();
    finish(reader);
    constexpr std::size_t facts = 2 + drawings * (7 + layouts * 5);
    EXPECT_EQ(calls.count(), facts + drawings) << "one readable name for each paper not known";
    calls.clear();
    reader.begin();
    finish(reader);
    EXPECT_EQ(calls.count(), facts);

    ListView list(world.locale);
    for (int i = 0; i < planColumns; ++i) list.addColumn(L"", 100);
    plan.fill(list, L"a3 plan");
    ASSERT_EQ(list.count(), layouts);
    list.setSelected(list.row(4), true);
    list.setSelected(list.row(5), true);
    const std::wstring kept = list.row(4).key();
    documents[3]->drawing().renameLayout(*documents[3]->findLayout(list.row(5).text()), L"anders");
    reader.begin();
    while (reader.step()) plan.fill(list, L"PLAN A3");
    plan.fill(list, L"PLAN A3");
    ASSERT_EQ(list.selectedItems().size(), 1u);
    EXPECT_EQ(list.selectedItems().front()->key(), kept);
    plan.fill(list, L"anders");
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(list.selected(), nullptr);
}

TEST_F(ReadTest, AReadingThatEndsEarlyShowsWholeDrawingsOnly) {
    const auto a = open(L"C:\\P", L"A.dwg", {L"1", L"2"});
    const auto b = open(L"C:\\P", L"B.dwg", {L"1", L"2"});
    const auto c = open(L"C:\\P", L"C.dwg", {L"1", L"2"});
    const Names all{L"A.dwg|1|1|aktuell", L"A.dwg|2|2|",        L"B.dwg|1|1|aktuell",
                    L"B.dwg|2|2|",        L"C.dwg|1|1|aktuell", L"C.dwg|2|2|"};
    const auto begin = [&] {
        reader.begin();
        reader.step();
        reader.step();
    };
    autoCAD.ConnectAutoCAD();
    begin();
    failNext(L"get Document.Layouts", refused);
    reader.step();
    reader.step();
    reader.stop();
    EXPECT_EQ(reader.statusText(), L"Einlesen abgebrochen, 1 Zeichnung fehlt. F5 liest neu.")
        << "also where only papers are left to read";

    read();
    begin();
    EXPECT_EQ(rows(), all) << "what was read before stays until it is read anew";
    EXPECT_EQ(reader.statusText(), L"Zeichnung 2 von 3 wird gelesen … (Esc bricht ab)");
    world.readings.escAfter = 1;
    reader.step();
    EXPECT_EQ(reader.statusText(), L"Einlesen abgebrochen, 2 Zeichnungen fehlen. F5 liest neu.");
    EXPECT_EQ(rows(), Names(all.begin(), all.begin() + 2));

    world.readings.escAfter = 1000;
    begin();
    calls.failAt(calls.count() + 2, RuntimeError(hresult::callRejected, L"belegt"));
    reader.step();
    EXPECT_EQ(reader.statusText(), L"AutoCAD antwortet nicht. F5 liest neu.");
    EXPECT_EQ(rows(), Names(all.begin(), all.begin() + 2));
    calls.heal();

    read();
    begin();
    host().close(b);
    finish(reader);
    EXPECT_EQ(reader.state(), PlanReader::State::done);
    EXPECT_EQ(rows(), (Names{all[0], all[1], all[4], all[5]}));

    begin();
    demo.end();
    reader.step();
    EXPECT_EQ(reader.state(), PlanReader::State::noAnswer);
}

TEST_F(ReadTest, AClosedWindowHoldsNothingOfTheHost) {
    open(L"C:\\P", L"A.dwg", {L"1", L"2"});
    read();
    autoCAD.gAcadApp = {};
    autoCAD.gAcadDoc = {};
    calls.hostEnded();
    EXPECT_GT(calls.deadObjects(), 0u);
    plan.letGo();
    EXPECT_EQ(calls.deadObjects(), 0u);
    EXPECT_EQ(rows().size(), 2u);
}

/// Any single fact may be refused: the row then stands without it.
TEST_F(ReadTest, AFactThatIsRefusedLeavesItsCellEmpty) {
    const auto a = open(L"C:\\P", L"A.dwg", {L"1", L"2"});
    setPlot(a, L"1", L"ISO_A3");
    setPlot(a, L"2", L"ISO_A4");
    read();
    const Names whole = rows();
    calls.clear();
    read();
    const Names asked = calls.list();
    for (std::size_t i = 0; i < asked.size(); ++i) {
        SCOPED_TRACE(testing::Message() << i);
        a->show(*a->findLayout(L"1"));
        read();
        calls.clear();
        calls.failAt(i + 1, RuntimeError(refused, L"Ungültige Eingabe"));
        a->show(*a->findLayout(L"2"));
        read();
        calls.heal();
        const bool needed = asked[i] == L"get Layout.Name" || asked[i] == L"enumerate" ||
                            asked[i] == L"get Document.Layouts" || asked[i] == L"get Document.FullName" ||
                            asked[i] == L"get Application.Documents" || asked[i].starts_with(L"running");
        if (needed) {
            EXPECT_NE(reader.statusText(), L"");
            EXPECT_EQ(rows(), Names{});
        } else {
            EXPECT_EQ(reader.state(), PlanReader::State::done);
            EXPECT_EQ(rows().size(), whole.size());
            EXPECT_EQ(plan.drawings()[0].currentLayout, L"2");
        }
    }
    a->show(*a->findLayout(L"1"));
    read();
    EXPECT_EQ(rows(), whole);
}

}  // namespace

}  // namespace blattwart::test
