#include "data/basAllgemein.h"

#include <gtest/gtest.h>

#include "demo/host/DemoAutomation.h"
#include "support/TestPlatform.h"

namespace blattwart::test {
namespace {

TEST(AllgemeinTest, RefusesForbiddenCharactersWithOneMessage) {
    demo::DemoAutomation nothing;
    TestPlatform world{nothing};
    world.messages.strict = true;
    basAllgemein module{world.platform, [] { return std::wstring(); }};
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
