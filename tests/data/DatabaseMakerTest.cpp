#include "data/DatabaseMaker.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "data/basDatenbank.h"
#include "data/NewDatabase.h"
#include "demo/ado/Ado.h"
#include "demo/host/CallRecorder.h"
#include "demo/host/DemoAutomation.h"
#include "support/TestPlatform.h"

namespace blattwart::test {
namespace {

/// The disk's files, as the stand-in for ADO works with them. As under Windows none is removed that somebody
/// has open.
class DiskFiles : public FakeFiles {
  public:
    std::weak_ptr<AutomationObject> catalog;

    bool exists(const std::wstring& path) override {
        return std::filesystem::exists(std::string(path.begin(), path.end()));
    }
    void remove(const std::wstring& path) override {
        requireClosed();
        std::filesystem::remove(std::string(path.begin(), path.end()));
    }
    void rename(const std::wstring& path, const std::wstring& newPath) override {
        requireClosed();
        if (exists(newPath)) throw RuntimeError(errorNumber::invalidCall, L"Die Datei ist vorhanden.");
        std::filesystem::rename(std::string(path.begin(), path.end()),
                                std::string(newPath.begin(), newPath.end()));
    }

  private:
    void requireClosed() const {
        if (!catalog.expired()) throw RuntimeError(errorNumber::invalidCall, L"Die Datei ist geöffnet.");
    }
};

class DatabaseMakerTest : public testing::Test {
  protected:
    DatabaseMakerTest() {
        programs.setOtherPrograms([this](std::wstring_view name) {
            ObjectPtr made = demo::makeAdo(name, faults);
            files.catalog = made;
            return made;
        });
        world.messages.strict = true;
    }
    ~DatabaseMakerTest() override {
        EXPECT_FALSE(std::filesystem::exists(file.string() + ".neu"));
        std::filesystem::remove(file);
    }

    int run(std::initializer_list<std::wstring> words) { return maker.run(std::vector(words)); }
    void expect(const std::wstring& start, const std::wstring& end = {}) {
        world.messages.expect(start + L"\n" + file.wstring() + end);
    }
    void write(const std::string& text) const { std::ofstream(file) << text; }
    std::string content() const {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const std::wstring made = L"Die Definitionsdatenbank ist angelegt:";
    const std::wstring found = L"Die Definitionsdatenbank ist schon da und bleibt, wie sie ist:";
    const std::wstring failed = L"Die Definitionsdatenbank kann nicht angelegt werden!";

    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("blattwart-maker-" + std::to_string(getpid()) + ".mdb");
    demo::AdoFaults faults;
    demo::DemoAutomation programs;
    demo::CallRecorder automation{programs};
    TestPlatform world{automation};
    DiskFiles files;
    DatabaseMaker maker{automation, files, world.messages, file.wstring()};
};

TEST_F(DatabaseMakerTest, MakesWhatTheProgramReads) {
    std::ofstream(file.string() + ".neu") << "half of one, by a program that was ended";
    expect(made);
    EXPECT_EQ(0, run({}));
    EXPECT_EQ((std::vector<Value>{L"Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Engine Type=5;Data Source=\"" +
                                  file.wstring() + L".neu\";"}),
              automation.calls()[1].arguments);

    world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                             file.string());
    const basRegistry registry(world.registry, world.locale, world.files);
    basDatenbank database(world.platform, registry, [] { return L"D:\\Vorlagen"; });
    database.LoadTypes();
    std::wstring types;
    for (const auto& type : database.types())
        types += std::to_wstring(type->TypenId) + L" " + type->typ + L": " + type->Info + L"\n";
    EXPECT_EQ(
        L"1 Vorlagen: Zeichnungsvorlagen\n"
        L"2 Stempelfelder: Stempelfelder der Layouts\n"
        L"4 Nordpfeile: Nordpfeile der Layouts\n"
        L"7 Legenden: Legenden der Layouts\n",
        types);
    EXPECT_EQ(L"D:\\Vorlagen", database.types().Item(L"1")->Verzeichnis);

    // Each table has its columns, and a key that an id cannot have twice.
    const ObjectPtr connection = automation.create(L"ADODB.Connection");
    connection->call({L"Connection", L"Open"},
                     {Value(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.wstring())});
    const auto executes = [&](const wchar_t* statement) {
        return ignoringErrors([&] { connection->call({L"Connection", L"Execute"}, {Value(statement)}); });
    };
    EXPECT_FALSE(executes(L"INSERT INTO Typen (TypenId) VALUES (7)"));
    const wchar_t* block =
        L"INSERT INTO Bloecke (blockId, TypenId, VorlagenId, block, Bezeichnung, EinfPunktX, EinfPunktY, "
        L"EinfPunktZ, FaktorX, FaktorY, FaktorZ, Drehung, Layer) "
        L"VALUES (1, 2, 3, 'B', 'Block', 0, 0, 0, 1, 1, 1, 0, NULL)";
    EXPECT_TRUE(executes(block));
    EXPECT_FALSE(executes(block));
    database.LoadBlocks();
    EXPECT_EQ(1, database.blocks().Count());
}

TEST_F(DatabaseMakerTest, NeverTouchesAFileThatExists) {
    write("Büro");
    expect(found);
    EXPECT_EQ(0, run({}));
    EXPECT_EQ(0, run({L"/still"}));
    EXPECT_EQ(0U, automation.count());

    // It comes while the program is about to make its own, whether that could be made or not.
    automation.beforeCall([this](std::size_t) { write("Büro"); });
    for (const std::size_t failing : {0U, 2U}) {
        std::filesystem::remove(file);
        automation.clear();
        automation.failAt(failing, RuntimeError(static_cast<std::int32_t>(0x80004005), L"Kein Zugriff"));
        EXPECT_EQ(0, run({L"/still"}));
        EXPECT_EQ("Büro", content());
    }
}

TEST_F(DatabaseMakerTest, AFailingCallLeavesNoFileAndIsTold) {
    const RuntimeError full(static_cast<std::int32_t>(0x80004005), L"Der Datenträger ist voll.");
    for (const demo::Moment moment : {demo::Moment::before, demo::Moment::after}) {
        std::size_t failing = 0;
        for (bool fails = true; fails;) {
            automation.clear();
            automation.failAt(++failing, full, moment);
            world.messages.answer(MessageAnswer::ok);
            fails = run({}) == 1;
            EXPECT_EQ(fails ? failed + L"\n" + file.wstring() + L"\n\n" + full.description()
                            : made + L"\n" + file.wstring(),
                      world.messages.texts().back());
            EXPECT_EQ(fails ? MessageIcon::critical : MessageIcon::information,
                      world.messages.shown.back().icon);
            EXPECT_EQ(!fails, std::filesystem::exists(file)) << failing;
            automation.heal();
        }
        EXPECT_EQ(automation.count(), failing - 1);
        std::filesystem::remove(file);
    }
}

TEST_F(DatabaseMakerTest, TellsThatTheProviderIsMissing) {
    const std::wstring reason =
        L"\n\nAuf diesem Rechner fehlt das Datenbankmodul (Microsoft Jet 4.0), mit dem auch Blattwart die "
        L"Datenbank liest!";
    for (const std::uint32_t number : {0x800401F3, 0x80040154}) {
        automation.clear();
        automation.failAt(1, RuntimeError(static_cast<std::int32_t>(number), L"Ungültige Klasse"));
        expect(failed, reason);
        EXPECT_EQ(1, run({}));
    }
    automation.heal();
    faults.providerMissing = true;
    expect(failed, reason);
    EXPECT_EQ(1, run({}));
    EXPECT_EQ(1, run({L"/still"}));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(DatabaseMakerTest, TakesTheFileThatItIsGivenAndNothingElse) {
    const std::wstring given = std::filesystem::relative(file).wstring();
    DatabaseMaker elsewhere(automation, files, world.messages, L"fehlt/Tarvix.mdb");
    const auto runElsewhere = [&](const std::vector<std::wstring>& words) { return elsewhere.run(words); };
    EXPECT_EQ(1, runElsewhere({L"/still"}));
    EXPECT_EQ(0, runElsewhere({L"/still", given}));
    EXPECT_TRUE(std::filesystem::exists(file));
    world.messages.expect(L"Aufruf: \"Datenbank anlegen.exe\" [/still] [DATEI]");
    EXPECT_EQ(2, runElsewhere({L"/?"}));
    EXPECT_EQ(2, runElsewhere({L"/still", given, L"mehr"}));
}

}  // namespace
}  // namespace blattwart::test
