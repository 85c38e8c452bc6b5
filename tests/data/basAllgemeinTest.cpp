#include "dialogs/basAllgemein.h"

#include <gtest/gtest.h>

#include "host/DemoAutomation.h"
#include "support/TestPlatform.h"

namespace blattwart::test {
namespace {

class AllgemeinTest : public testing::Test {
  protected:
    AllgemeinTest() { world.messages.strict = true; }

    demo::DemoAutomation nothing;
    TestPlatform world{nothing};
    std::function<std::wstring()> hostFolder = [] { return std::wstring(L"D:\\Vorlagen"); };
    basAllgemein module{world.platform, [this] { return hostFolder(); }};
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

TEST_F(AllgemeinTest, DeletesAFileOnYesOnly) {
    const std::wstring file = L"D:\\Vorlagen\\A.dwt";
    const std::wstring question = L"Datei: D:\\Vorlagen\\A.dwt wirklich löschen?";
    world.files.add(file);
    world.messages.expect(question, MessageAnswer::no);
    EXPECT_FALSE(module.DateiLoeschen(file));
    EXPECT_EQ((ShownBox{question, L"Blattwart", MessageButtons::yesNo, MessageIcon::question}),
              world.messages.shown.back());
    EXPECT_TRUE(world.files.exists(file));

    world.files.lock(file);
    world.messages.expect(question, MessageAnswer::yes);
    EXPECT_FALSE(module.DateiLoeschen(file));
    const std::wstring other = L"D:\\Vorlagen\\B.dwt";
    world.files.add(other);
    world.messages.answer(MessageAnswer::yes);
    EXPECT_TRUE(module.DateiLoeschen(other));
    EXPECT_FALSE(world.files.exists(other));
}

TEST_F(AllgemeinTest, TemplateFolderIsEmptyWhenTheHostDoesNotAnswer) {
    EXPECT_EQ(L"D:\\Vorlagen", module.GetTemplateFolder());
    hostFolder = []() -> std::wstring { throw RuntimeError(hresult::serverUnavailable, L""); };
    EXPECT_EQ(L"", module.GetTemplateFolder());
}

}  // namespace
}  // namespace blattwart::test
