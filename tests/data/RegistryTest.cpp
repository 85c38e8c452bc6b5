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

    FakeRegistry fake;
    GermanLocale locale;
    FakeFiles files;
    basRegistry registry{fake, locale, files};
};

TEST_F(RegistryTest, ReadsTextsByteForByte) {
    const std::wstring missing = L"C:\\Programme\\Blattwart\\Tarvix.mdb";
    EXPECT_EQ(missing, registry.GetDatabasePath());
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
    registry.SetAutoEnd(0);
    EXPECT_EQ(1, registry.GetAutoEnd()) << "without a key nothing is stored";
    store("Anderes", "");
    registry.SetAutoEnd(0);
    const FakeRegistry::Entry* stored = fake.find(RegistryRoot::localMachine, path, "LM_Beenden");
    ASSERT_NE(nullptr, stored);
    EXPECT_EQ((FakeRegistry::Entry{Registry::textType, "0"}), *stored);
    EXPECT_EQ(0, registry.GetAutoEnd());
    EXPECT_EQ(0U, fake.openKeys());

    const std::wstring file = L"D:\\Größe\\€.mdb";
    CRegistry values(fake, locale);
    values.TX_DefDB(file);
    EXPECT_EQ(file, registry.GetDatabasePath());
    struct Property {
        const char* name;
        void (CRegistry::*put)(const std::wstring&);
        std::wstring (CRegistry::*get)();
    };
    for (const auto& [name, put, get] :
         {Property{"AktKonfig", &CRegistry::TX_AktKonfig, &CRegistry::TX_AktKonfig},
          Property{"TempDWGs", &CRegistry::TX_TempDWGs, &CRegistry::TX_TempDWGs},
          Property{"Daten", &CRegistry::TX_Daten, &CRegistry::TX_Daten},
          Property{"ColFormat", &CRegistry::ColFormat, &CRegistry::ColFormat},
          Property{"Startanzeige", &CRegistry::TX_Startanzeige, &CRegistry::TX_Startanzeige}}) {
        (values.*put)(file);
        EXPECT_NE(nullptr, fake.find(RegistryRoot::localMachine, path, name)) << name;
        EXPECT_EQ(file, (values.*get)()) << name;
    }

    fake.writable = false;
    registry.SetAutoEnd(-5);
    EXPECT_EQ(0, registry.GetAutoEnd());
}

}  // namespace
}  // namespace blattwart::test
