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

}  // namespace
}  // namespace demo
