#include <gtest/gtest.h>

#include "DrawingSupport.h"

namespace demo {
namespace {

using Tabs = std::vector<std::wstring>;

const Object* firstOf(const Layout& layout, const std::string& type, std::size_t skip = 0) {
    for (const auto& entity : layout.entities()) {
        if (entity->type() == type && skip-- == 0) return entity.get();
    }
    return nullptr;
}

struct SampleCase {
    const char* file;
    const char* release;
    Tabs tabs;
    const wchar_t* current;
};

TEST(Drawing, ReadsTheLayoutsOfEachRelease) {
    const SampleCase cases[] = {
        {"Zeichnungen/Schnitt A-A.dwg",
         "AC1015",
         {L"Model", L"Schnitt A-A", L"Schnitt Ω", L"Letter"},
         L"Model"},
        {"Zeichnungen/Nur Modell.dwg", "AC1018", {L"Model"}, L"Model"},
        {"Zeichnungen/Werkplan Obergeschoß.dxf",
         "AC1021",
         {L"Model", L"Blatt 10", L"Blatt 2", L"Blatt 1"},
         L"Blatt 10"},
        {"Zeichnungen/Erdgeschoß Süd.dwg",
         "AC1024",
         {L"Model", L"Grundriß 1-50", L"Übersicht", L"Kopie für Ämter", L"Leer"},
         L"Grundriß 1-50"},
        {"Haus 1/Plan.dwg", "AC1027", {L"Model", L"Lageplan", L"Ansicht"}, L"Lageplan"},
        {"Haus 2/Plan.dwg", "AC1032", {L"Model", L"Lageplan"}, L"Model"},
        {"Vorlagen/Rahmen A1.DWG", "AC1027", {L"Model", L"Rahmen A1"}, L"Rahmen A1"},
    };
    for (const SampleCase& expected : cases) {
        SCOPED_TRACE(expected.file);
        const Drawing drawing = sample(expected.file);
        EXPECT_EQ(drawing.version(), expected.release);
        EXPECT_EQ(tabs(drawing), expected.tabs);
        EXPECT_EQ(drawing.currentLayout().name(), expected.current);
        for (std::size_t i = 0; i < expected.tabs.size(); ++i)
            EXPECT_EQ(drawing.layouts()[i]->tabOrder(), static_cast<std::int32_t>(i));
    }
}

TEST(Drawing, ReadsViewportsBlockReferencesAndTheirExtendedData) {
    const Drawing drawing = sample("Zeichnungen/Erdgeschoß Süd.dwg");
    const Layout& layout = *drawing.findLayout(L"Grundriß 1-50");
    ASSERT_NE(layout.sheetViewport(), nullptr);
    EXPECT_EQ(layout.sheetViewport(), layout.entities().front().get());
    EXPECT_EQ(drawing.findLayout(L"Leer")->sheetViewport(), nullptr);

    const Object& viewport = *firstOf(layout, "VIEWPORT", 1);
    EXPECT_FALSE(isSheetViewport(viewport));
    EXPECT_NEAR(viewport.number(41) / viewport.number(45), 0.02, 1e-12);
    EXPECT_EQ(viewport.layer(), L"VIEWPORTS");
    EXPECT_EQ(viewport.owner(), layout.blockRecord());
    EXPECT_EQ(drawing.find(viewport.handle()), &viewport);
    EXPECT_EQ(viewport.xdata(L"tarvix"), (XData{{1001, L"Tarvix"},
                                                {1071, 0},
                                                {1005, L"1"},
                                                {1071, 21},
                                                {1005, L"1"},
                                                {1071, 121},
                                                {1000, L"Erdgeschoß Süd"}}));
    EXPECT_EQ(
        viewport.xdata(L"FREMDPROGRAMM"),
        (XData{{1001, L"FREMDPROGRAMM"}, {1000, L"Größe"}, {1040, 1.5}, {1010, Point{1, 2, 3}}, {1070, 7}}));
    EXPECT_EQ(viewport.xdata().size(), 12u);
    EXPECT_TRUE(layout.sheetViewport()->xdata().empty());

    const Object& stamp = *firstOf(layout, "INSERT");
    EXPECT_EQ(stamp.text(2), L"TX_STEMPEL_A3");
    EXPECT_EQ(stamp.point(10), (Point{230, 18, 0}));
    EXPECT_EQ(stamp.parts().size(), 3u);
    EXPECT_EQ(stamp.parts().front()->text(1), L"Familie Müller");
    EXPECT_EQ(stamp.xdata(L"Tarvix")[2], (XDataItem{1005, L"8"}));
    EXPECT_EQ(firstOf(layout, "INSERT", 1)->number(50), 90);
}

TEST(Drawing, OldReleasesHoldForeignCharactersAsEscapes) {
    Drawing drawing = sample("Zeichnungen/Schnitt A-A.dwg");
    EXPECT_EQ(std::get<std::wstring>(
                  firstOf(*drawing.findLayout(L"Schnitt A-A"), "VIEWPORT", 1)->xdata(L"Tarvix").back().value),
              L"Schnitt – 1:100 €");
    drawing.renameLayout(*drawing.findLayout(L"schnitt ω"), L"Größe 测量");
    const std::string bytes = saved(drawing);
    EXPECT_NE(bytes.find("\r\nGr\xF6\xDF"
                         "e \\U+6D4B\\U+91CF\r\n"),
              std::string::npos);
    EXPECT_NE(loaded(bytes).findLayout(L"GRÖßE 测量"), nullptr);
}

TEST(Drawing, WritesBackEverythingItRead) {
    for (const auto& file : std::filesystem::recursive_directory_iterator(SAMPLES_FOLDER)) {
        const std::string ending = file.path().extension().string();
        if (ending != ".dwg" && ending != ".DWG" && ending != ".dwt" && ending != ".dxf") continue;
        SCOPED_TRACE(file.path());
        const Drawing drawing = Drawing::loadFile(decodeText(file.path().string()));
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string original(std::istreambuf_iterator<char>(stream), {});
        std::string written = saved(drawing);
        std::erase(written, '\r');
        EXPECT_TRUE(written == original);
    }
}

TEST(Drawing, KeepsUnknownSectionsGroupsAndComments) {
    std::string text = saved(Drawing::createEmpty());
    text.insert(0, "999\r\nein Kommentar\r\n");
    const std::string more =
        "  0\r\nSECTION\r\n  2\r\nNEUES\r\n 90\r\n7\r\n  0\r\nDING\r\n310\r\n00FF\r\n  0\r\nENDSEC\r\n";
    text.insert(text.rfind("  0\r\nEOF"), more);
    const std::string entity =
        "  0\r\nUNBEKANNT\r\n  5\r\nFE\r\n330\r\n1F\r\n100\r\nNeu\r\n 70\r\n     "
        "3\r\n1001\r\nACAD\r\n1000\r\n x \r\n";
    text.insert(text.find("ENTITIES\r\n") + 10, entity);
    Drawing drawing = loaded(text);
    EXPECT_EQ(drawing.modelLayout().entities().front()->type(), "UNBEKANNT");
    drawing.setHeaderVariable("$HANDSEED", handleGroup(5, 0xFF));
    text.replace(text.find("$HANDSEED\r\n  5\r\n") + 16, 2, "FF");
    EXPECT_EQ(saved(drawing), text);
}

}  // namespace
}  // namespace demo
