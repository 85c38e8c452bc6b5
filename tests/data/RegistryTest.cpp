#include <gtest/gtest.h>

#include "data/basRegistry.h"
#include "data/CRegistry.h"
#include "support/FakeFiles.h"
#include "support/FakeRegistry.h"

namespace blattwart::test {
namespace {

const std::string path = "SOFTWARE\\Ormeda\\Tarvix 2.1";

class RegistryTest : public testing::Test {
  protected:
    void store(const std::string& name, const std::string& bytes) {
        fake.store(RegistryRoot::localMachine, path, name, {Registry::textType, bytes});
    }
    const FakeRegistry::Entry* stored(const std::string& name) const {
        return fake.find(RegistryRoot::localMachine, path, name);
    }

    FakeRegistry fake;
    GermanLocale locale;
    FakeFiles files;
    basRegistry registry{fake, locale, files};
};

TEST_F(RegistryTest, WithoutKeyEverythingHasItsDefaultAndNothingIsMade) {
    EXPECT_EQ(L"C:\\Programme\\Blattwart\\Tarvix.mdb", registry.GetDatabasePath());
    EXPECT_EQ(1, registry.GetAutoEnd());
    registry.SetAutoEnd(0);
    EXPECT_EQ(1, registry.GetAutoEnd());
    EXPECT_EQ(nullptr, stored("LM_Beenden"));
}

TEST_F(RegistryTest, ReadsTextsByteForByte) {
    const std::wstring missing = files.folder + L"\\Tarvix.mdb";
    using namespace std::string_literals;
    const std::pair<std::string, std::wstring> cases[] = {
        {"D:\\Gr\xF6\xDF"s + "e\\\x80.mdb\0"s, L"D:\\Größe\\€.mdb"},
        {"D:\\x.mdb", L"D:\\x.mdb"},             // stored without a NUL
        {"D:\\x.mdb\0behind\0"s, L"D:\\x.mdb"},  // cut at the first NUL
        {"", missing},
        {"\0"s, missing},
        {std::string(255, 'a') + '\0', std::wstring(255, L'a')},
        {std::string(255, 'a'), std::wstring(255, L'a')},
        {std::string(256, 'a'), missing},  // fills the buffer and leaves no room for a NUL
        {std::string(256, 'a') + '\0', missing}};
    for (const auto& [bytes, text] : cases) {
        store("DefDB", bytes);
        EXPECT_EQ(text, registry.GetDatabasePath()) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(0U, fake.openKeys());
}

TEST_F(RegistryTest, ReadsAutoEndAsLeadingNumber) {
    const std::pair<const char*, std::int16_t> cases[] = {{"0", 0},   {"1", 1},     {"abc", 0},
                                                          {" 2x", 2}, {"1.5", 2},   {"0.5", 0},
                                                          {"-1", -1}, {"40000", 1}, {"1e999", 1}};
    for (const auto& [bytes, number] : cases) {
        store("LM_Beenden", bytes);
        EXPECT_EQ(number, registry.GetAutoEnd()) << bytes;
    }
}

TEST_F(RegistryTest, StoresTextWithoutNulAndReadsItBack) {
    fake.addKey(RegistryRoot::localMachine, path);
    registry.SetAutoEnd(1);
    ASSERT_NE(nullptr, stored("LM_Beenden"));
    EXPECT_EQ((FakeRegistry::Entry{Registry::textType, "1"}), *stored("LM_Beenden"));
    registry.SetAutoEnd(0);
    EXPECT_EQ(0, registry.GetAutoEnd());
    EXPECT_EQ(0U, fake.openKeys());

    fake.writable = false;
    registry.SetAutoEnd(-5);
    EXPECT_EQ(0, registry.GetAutoEnd());
}

TEST_F(RegistryTest, EachPropertyHasItsOwnValue) {
    fake.addKey(RegistryRoot::localMachine, path);
    using Set = void (CRegistry::*)(const std::wstring&);
    using Get = std::wstring (CRegistry::*)();
    struct Property {
        const char* name;
        Set set;
        Get get;
    };
    const Property properties[] = {{"AktKonfig", &CRegistry::TX_AktKonfig, &CRegistry::TX_AktKonfig},
                                   {"DefDB", &CRegistry::TX_DefDB, &CRegistry::TX_DefDB},
                                   {"TempDWGs", &CRegistry::TX_TempDWGs, &CRegistry::TX_TempDWGs},
                                   {"Daten", &CRegistry::TX_Daten, &CRegistry::TX_Daten},
                                   {"ColFormat", &CRegistry::ColFormat, &CRegistry::ColFormat},
                                   {"Startanzeige", &CRegistry::TX_Startanzeige, &CRegistry::TX_Startanzeige},
                                   {"LM_Beenden", &CRegistry::TX_LM_Beenden, &CRegistry::TX_LM_Beenden}};
    CRegistry values(fake, locale);
    for (const Property& property : properties)
        (values.*property.set)(locale.fromAnsi(property.name) + L"äЖ");
    for (const Property& property : properties) {
        EXPECT_EQ(property.name + std::string("\xE4?"), stored(property.name)->bytes);
        EXPECT_EQ(locale.fromAnsi(property.name) + L"ä?", (values.*property.get)());
    }
}

TEST_F(RegistryTest, SurvivesEveryFailingCall) {
    store("LM_Beenden", "0");
    for (int call = 1; call <= 6; ++call) {
        fake.calls = {.failAt = call};
        const std::int16_t read = registry.GetAutoEnd();
        EXPECT_TRUE(read == 0 || read == 1);
        registry.SetAutoEnd(0);
        EXPECT_EQ(6, fake.calls.made);
        EXPECT_EQ(0U, fake.openKeys());
        EXPECT_EQ("0", stored("LM_Beenden")->bytes);
    }
}

}  // namespace
}  // namespace blattwart::test
