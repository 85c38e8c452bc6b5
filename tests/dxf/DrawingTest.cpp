#include <gtest/gtest.h>

#include "DrawingSupport.h"

namespace demo {
namespace {

const Object* firstOf(const Layout& layout, const std::string& type, std::size_t skip = 0) {
    for (const auto& entity : layout.entities()) {
        if (entity->type() == type && skip-- == 0) return entity.get();
    }
    return nullptr;
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

}  // namespace
}  // namespace demo
