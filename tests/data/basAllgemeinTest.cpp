#include "data/basAllgemein.h"

#include <gtest/gtest.h>

#include "demo/host/DemoAutomation.h"
#include "support/TestPlatform.h"

namespace blattwart::test {
namespace {

class AllgemeinTest : public testing::Test {
  protected:
    AllgemeinTest() { world.messages.strict = true; }

    demo::DemoAutomation nothing;
    TestPlatform world{nothing};
    basAllgemein module{world.platform, [] { return std::wstring(); }};
};

TEST_F(AllgemeinTest, FormatsNumbersWithDecimalsOnlyWhereThereAreSome) {
    const std::pair<double, const wchar_t*> cases[] = {{2, L"2"},     {2.5, L"2,50"},  {0.125, L"0,13"},
                                                       {100, L"100"}, {1.05, L"1,05"}, {0, L"0"},
                                                       {1.999, L"2"}, {-0.5, L"-0,50"}};
    for (const auto& [number, text] : cases) EXPECT_EQ(text, module.FormatZahl(number)) << number;
}

TEST_F(AllgemeinTest, RefusesForbiddenCharactersWithOneMessage) {
    for (const wchar_t* text : {L"", L"Blatt A1", L"Größe_(2)-x.`^~#;,&"})
        EXPECT_FALSE(module.CheckInvalidChars(text));
    const std::wstring message = L"Eingabe enthält ungültige Zeichen!";
    for (const wchar_t character : std::wstring(L"<>/\\\":?*|='´")) {
        world.messages.expect(message);
        EXPECT_TRUE(module.CheckInvalidChars(std::wstring(L"A1") + character)) << static_cast<int>(character);
    }
    world.messages.expect(message);
    EXPECT_TRUE(module.CheckInvalidChars(L"A<1>?"));
    EXPECT_EQ((ShownBox{message, L"Blattwart", MessageButtons::ok, MessageIcon::exclamation}),
              world.messages.shown.back());
}

}  // namespace
}  // namespace blattwart::test
