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
    EXPECT_NE(layout.sheetViewport(), &viewport);
    EXPECT_NEAR(viewport.number(41) / viewport.number(45), 0.02, 1e-12);
    EXPECT_EQ(viewport.layer(), L"VIEWPORTS");
    EXPECT_EQ(viewport.owner(), layout.blockRecord());
    EXPECT_EQ(drawing.find(viewport.handle()), &viewport);
    EXPECT_EQ(
        viewport.xdata(L"fremdPROGRAMM"),
        (XData{{1001, L"FREMDPROGRAMM"}, {1000, L"Größe"}, {1040, 1.5}, {1010, Point{1, 2, 3}}, {1070, 7}}));
    EXPECT_EQ(viewport.xdata().size(), 12u);

    const Object& stamp = *firstOf(layout, "INSERT");
    EXPECT_EQ(stamp.text(2), L"TX_STEMPEL_A3");
    EXPECT_EQ(stamp.point(10), (Point{230, 18, 0}));
    EXPECT_EQ(stamp.parts().size(), 3u);
    EXPECT_EQ(stamp.parts().front().text(1), L"Familie Müller");
    EXPECT_EQ(firstOf(layout, "INSERT", 1)->number(50), 90);
    // In an old release the letter is an escape.
    EXPECT_NE(sample("Zeichnungen/Schnitt A-A.dwg").findLayout(L"SCHNITT ω"), nullptr);
}

/// The sample drawings, each once as another program wrote it and once as we do.
TEST(Drawing, IsWrittenAsItWasRead) {
    std::string originals = "--all";
    std::string copies = "--all";
    std::vector<std::unique_ptr<TemporaryFile>> files;
    for (const auto& file : std::filesystem::recursive_directory_iterator(SAMPLES_FOLDER)) {
        const std::string ending = file.path().extension().string();
        if (ending != ".dwg" && ending != ".DWG" && ending != ".dwt" && ending != ".dxf") continue;
        const Drawing drawing = sample(file.path());
        EXPECT_EQ(saved(loaded(saved(drawing))), saved(drawing)) << file.path();
        files.push_back(std::make_unique<TemporaryFile>(drawing, std::to_string(files.size())));
        originals += " '" + file.path().string() + "'";
        copies += " '" + files.back()->path.string() + "'";
    }
    const std::string seen = inspect(copies);
    EXPECT_EQ(seen, inspect(originals));
    EXPECT_NE(seen.find("faults:\n"), std::string::npos) << seen;
    EXPECT_EQ(seen.find("faults: "), std::string::npos) << seen;
}

}  // namespace
}  // namespace demo
