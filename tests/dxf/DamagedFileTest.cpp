#include <gtest/gtest.h>

#include "DrawingSupport.h"

namespace demo {
namespace {

namespace errorNumber = blattwart::errorNumber;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(DamagedFile, IsRefusedWithADescription) {
    const std::string good = saved(Drawing::createEmpty());
    const std::string cases[] = {
        "",
        "Hallo Welt\n",
        "AutoCAD Binary DXF\r\n\x1A",
        "AC1024\x00\x00",
        replaced(good, "AC1024", "AC1009"),
        replaced(good, "  9\r\n$ACADVER\r\n  1\r\nAC1024\r\n", ""),
        replaced(good, " 70\r\n", " 7x\r\n"),
        replaced(good, "*Model_Space", "*Modell"),
        replaced(good, "LAYOUT\r\n  5\r\n22", "LAYOUT\r\n  5\r\n1F"),
        replaced(good, "ENDTAB", "ENDTBA"),
        replaced(good, "ENDBLK", "BLOCK"),
        replaced(good, "330\r\n1F\r\n  0\r\nLAYOUT", "330\r\nAB\r\n  0\r\nLAYOUT"),
        replaced(good, "330\r\n1F\r\n  0\r\nLAYOUT", "330\r\n1B\r\n  0\r\nLAYOUT"),
        replaced(good, "OBJECTS", "OBJEKTE"),
        replaced(good, "  0\r\nEOF\r\n", ""),
        replaced(good, "  5\r\n40\r\n", "  5\r\n40\r\n  5"),
        replaced(good, "  5\r\n14\r\n", "  5\r\nFFFFFFFFFFFFFFFF\r\n"),
    };
    for (const std::string& text : cases)
        EXPECT_EQ(errorOf([&] { loaded(text); }), errorNumber::invalidCall) << text.substr(0, 200);
    EXPECT_EQ(errorOf([] { Drawing::loadFile(L"/gibt/es/nicht.dwg"); }), errorNumber::fileNotFound);
    EXPECT_EQ(errorOf([] { Drawing::loadFile(L"/tmp"); }), errorNumber::fileNotFound);
    EXPECT_EQ(errorOf([] { Drawing::createEmpty().saveFile(L"/gibt/es/nicht.dwg"); }),
              errorNumber::fileNotFound);
}

/// Everything that walks through a drawing; a damaged one may refuse each step, but not break.
void useAll(const std::string& text) {
    errorOf([&] {
        Drawing drawing = loaded(text);
        errorOf([&] { drawing.addLayout(L"Neu"); });
        for (Layout* layout : drawing.layouts()) {
            errorOf([&] { drawing.copyLayout(*layout, drawing.uniqueLayoutName(L"Kopie")); });
            errorOf([&] { drawing.setCurrentLayout(*layout); });
            errorOf([&] { Drawing::createEmpty().importLayouts(drawing); });
        }
        drawing.audit();
        const std::vector<Layout*> layouts = drawing.layouts();
        for (Layout* layout : layouts) errorOf([&] { drawing.deleteLayout(*layout); });
        for (Layout* layout : drawing.layouts()) errorOf([&] { drawing.templateOf(*layout); });
        saved(drawing);
    });
}

TEST(DamagedFile, NeverBreaksTheProgram) {
    Drawing drawing = Drawing::createEmpty();
    drawing.setCurrentLayout(*drawing.findLayout(L"Layout1"));
    const std::string good = saved(drawing);
    for (std::size_t length = 0; length < good.size(); length += 97) useAll(good.substr(0, length));
    std::uint32_t state = 1;
    const auto random = [&](std::size_t limit) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % limit;
    };
    for (int round = 0; round < 150; ++round) {
        std::string text = good;
        for (int change = 0; change < 3; ++change) {
            const std::size_t at = random(text.size());
            // Handles that point elsewhere are the worst kind of damage.
            if (random(2) == 0)
                text[at] = "0123456789ABCDEF\n "[random(18)];
            else
                text = replaced(text, text.substr(at, 4), text.substr(random(text.size() - 12), 4));
        }
        useAll(text);
    }
}

}  // namespace
}  // namespace demo
