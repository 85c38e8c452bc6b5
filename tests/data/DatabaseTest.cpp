#include "data/basDatenbank.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "demo/ado/Ado.h"
#include "demo/host/CallRecorder.h"
#include "demo/host/DemoAutomation.h"
#include "demo/samples/SampleDatabase.h"
#include "support/TestPlatform.h"

namespace blattwart::test {
namespace {

const RuntimeError error(static_cast<std::int32_t>(0x80004005), L"Unbekannter Fehler");
const std::wstring openFailed = L"Fehler beim Öffnen der Def-Datenbank!";

/// The definition database read from a real file through the stand-in for ADO.
class DatabaseTest : public testing::Test {
  protected:
    DatabaseTest() {
        programs.setOtherPrograms([this](std::wstring_view name) {
            ObjectPtr object = demo::makeAdo(name, faults);
            made.push_back(object);
            return object;
        });
        world.messages.strict = true;
        world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                                 file.string());
    }
    ~DatabaseTest() override { std::filesystem::remove(file); }

    /// A new database whose tables hold these rows: "(1, 'Pläne', NULL, 'Info'), (...)"; none where empty.
    void write(const std::wstring& types, const std::wstring& blocks = {}) {
        std::wstring rows = L"DELETE FROM Typen;";
        if (!types.empty()) rows += L"INSERT INTO Typen VALUES " + types + L";";
        if (!blocks.empty()) rows += L"INSERT INTO Bloecke VALUES " + blocks + L";";
        writeBySql(rows);
    }
    void writeBySql(std::wstring_view statements) {
        std::filesystem::remove(file);
        demo::makeDatabase(file.wstring(), statements);
    }
    std::vector<std::wstring> typeNames() const {
        std::vector<std::wstring> names;
        for (const auto& type : database.types()) names.push_back(type->typ);
        return names;
    }
    /// A record set over the types, as the program would open it for writing.
    Recordset openTypes() {
        const ObjectPtr connection = automation.create(L"ADODB.Connection");
        connection->call({L"Connection", L"Open"},
                         {Value(L"PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.wstring() + L";")});
        const ObjectPtr rows = automation.create(L"ADODB.Recordset");
        rows->call({L"Recordset", L"Open"},
                   {Value(L"select * from Typen"), Value(connection), Value(3), Value(3), Value(-1)});
        return {rows, world.locale};
    }

    /// Connections and recordsets that are still held.
    std::ptrdiff_t heldObjects() const {
        return std::ranges::count_if(made, [](const auto& object) { return !object.expired(); });
    }

    using Names = std::vector<std::wstring>;

    std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("blattwart-data-" + std::to_string(getpid()) + ".mdb");
    demo::AdoFaults faults;
    std::vector<std::weak_ptr<AutomationObject>> made;
    demo::DemoAutomation programs;
    demo::CallRecorder automation{programs};
    TestPlatform world{automation};
    basRegistry registry{world.registry, world.locale, world.files};
    std::wstring templateFolder = L"D:\\Vorlagen";
    int templateFolderAsked = 0;
    basDatenbank database{world.platform, registry, [this] {
                              ++templateFolderAsked;
                              return templateFolder;
                          }};
};

TEST_F(DatabaseTest, OpensAndClosesAsAgreedWithAdo) {
    write(L"(3, 'Pläne', 'E:\\Pläne', NULL)");
    database.LoadTypes();
    const Names expected{L"create ADODB.Connection", L"put Connection.CursorLocation",
                         L"call Connection.Open",    L"create ADODB.Recordset",
                         L"call Recordset.Open",     L"call Recordset.Clone",
                         L"get Recordset.EOF",       L"call Recordset.MoveFirst",
                         L"get Recordset.EOF",       L"get Recordset.Fields",
                         L"call Fields.Item",        L"get Field.Value",
                         L"call Fields.Item",        L"get Field.Value",
                         L"call Fields.Item",        L"get Field.Value",
                         L"call Fields.Item",        L"get Field.Value",
                         L"call Recordset.MoveNext", L"get Recordset.EOF",
                         L"get Recordset.State",     L"call Recordset.Close",
                         L"get Connection.State",    L"call Connection.Close"};
    using Values = std::vector<Value>;
    const std::wstring source = L"PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.wstring() + L";";
    EXPECT_EQ(Values{3}, automation.calls()[1].arguments);
    EXPECT_EQ((Values{source, L"", L"", -1}), automation.calls()[2].arguments);
    EXPECT_EQ((Values{L"select * from Typen", {}, 3, 3, -1}), automation.calls()[4].arguments);
    EXPECT_EQ(Values{-1}, automation.calls()[5].arguments);
    EXPECT_EQ(expected, automation.list());
    EXPECT_EQ(0, heldObjects());
}

TEST_F(DatabaseTest, ReadsTypesUnderTheirIdsAndPassesOverBadRows) {
    writeBySql(
        L"DROP TABLE Typen;"
        L"CREATE TABLE Typen (TypenId INTEGER, typ VARCHAR(50), Verzeichnis VARCHAR(255), Info VARCHAR(255));"
        L"INSERT INTO Typen VALUES (12, 'Schnitte', 'E:\\Schnitte', 'für Bauteile'),"
        L"    (NULL, 'ohne', 'E:', ''), (12, 'doppelt', 'E:', ''), (2, NULL, NULL, NULL),"
        L"    (-4, NULL, 'F:', ''), (5, 'Schilder', NULL, NULL);");
    database.LoadTypes();
    EXPECT_EQ((Names{L"Schnitte", L"", L"", L"Schilder"}), typeNames());
    const CTypen& types = database.types();
    EXPECT_EQ(L"E:\\Schnitte", types.Item(L"12")->Verzeichnis);
    EXPECT_EQ(L"für Bauteile", types.Item(L"12")->Info);
    EXPECT_EQ(types.Item(L"2"), types.Item(2));
    EXPECT_EQ(L"", types.Item(L"2")->Info);
    EXPECT_EQ(-4, types.Item(L"-4")->TypenId);
    EXPECT_EQ(L"C:\\Programme\\Blattwart\\Bibliothek\\Schilder", types.Item(L"5")->Verzeichnis);
    EXPECT_EQ(0, templateFolderAsked);
    for (const std::int32_t position : {0, -1, 5}) EXPECT_THROW(types.Item(position), RuntimeError);
    for (const wchar_t* id : {L"", L"02", L"3"}) EXPECT_THROW(types.Item(id), RuntimeError);
}

TEST_F(DatabaseTest, TypeOneLivesInTheHostsTemplateFolder) {
    write(L"(1, 'Standard', NULL, NULL)");
    database.LoadTypes();
    EXPECT_EQ(L"D:\\Vorlagen", database.types().Item(L"1")->Verzeichnis);
    templateFolder.clear();
    database.LoadTypes();
    EXPECT_EQ(L"C:\\Programme\\Blattwart\\Bibliothek\\Standard", database.types().Item(L"1")->Verzeichnis);
    write(L"(1, 'Standard', 'E:\\Eigene', NULL)");
    database.LoadTypes();
    EXPECT_EQ(L"E:\\Eigene", database.types().Item(L"1")->Verzeichnis);
    EXPECT_EQ(2, templateFolderAsked);
}

TEST_F(DatabaseTest, ReadsBlocksAndPassesOverCellsWithoutValue) {
    write(L"",
          L"(4, 1, 7, 'Stempel', 'Schriftfeld', 1.5, 2.5, 3.5, 2, 3, 4, 0.25, '0'),"
          L"(11, 1, 7, 'Stempel', 'Schriftfeld', 1.5, 2.5, 3.5, NULL, 3, 4, 0.25, NULL),"
          L"(12, 1, 7, 'Stempel', 'Schriftfeld', 1.5, 2.5, 3.5, 2, 3, 4, 0.25, 'Rahmen')");
    database.LoadBlocks();
    ASSERT_EQ(3, database.blocks().Count());
    CBloecke added;
    added.AddBlock(L"Schriftfeld", 2, 3, 4, 0.25, 4, 9, 7, 1, L"Stempel", 1.5, 2.5, 3.5, L"", L"4");
    EXPECT_EQ(9, added.Item(1)->objId);
    for (const auto& block : {database.blocks().Item(L"4"), added.Item(L"4")}) {
        EXPECT_EQ(L"Stempel", block->block);
        EXPECT_EQ(L"Schriftfeld", block->Bezeichnung);
        EXPECT_EQ(4, block->blockId);
        EXPECT_EQ(1, block->TypenId);
        EXPECT_EQ(7, block->VorlagenId);
        const std::vector<double> numbers{block->EinfPunktX, block->EinfPunktY, block->EinfPunktZ,
                                          block->FaktorX,    block->FaktorY,    block->FaktorZ,
                                          block->Drehung};
        EXPECT_EQ((std::vector<double>{1.5, 2.5, 3.5, 2, 3, 4, 0.25}), numbers);
    }
    EXPECT_EQ(L"0", database.blocks().Item(L"4")->Layer);
    const auto gaps = database.blocks().Item(L"11");
    EXPECT_EQ(L"", gaps->Layer);
    EXPECT_EQ(0, gaps->FaktorX);
    EXPECT_EQ(3, gaps->FaktorY);
    EXPECT_EQ(L"Rahmen", database.blocks().Item(3)->Layer);
    write(L"", L"(5, 1, 7, 'Stempel', '', 0, 0, 0, 1, 1, 1, 0, '')");
    database.LoadBlocks();
    EXPECT_EQ(1, database.blocks().Count());
}

TEST_F(DatabaseTest, AFailedOpenIsToldOnceAndKeepsThePreviousLists) {
    write(L"(1, 'eins', 'E:', NULL)", L"(1, 1, 7, 'Stempel', '', 0, 0, 0, 1, 1, 1, 0, '')");
    database.LoadTypes();
    database.LoadBlocks();
    faults.providerMissing = true;
    world.messages.expect(openFailed);
    database.LoadTypes();
    EXPECT_EQ((ShownBox{openFailed, L"Blattwart", MessageButtons::ok, MessageIcon::critical}),
              world.messages.shown.back());
    faults.providerMissing = false;
    std::filesystem::remove(file);
    world.messages.expect(openFailed);
    database.LoadBlocks();
    EXPECT_EQ(Names{L"eins"}, typeNames());
    EXPECT_EQ(1, database.blocks().Count());
    EXPECT_EQ(0, heldObjects());

    // A database without the table opens, so there is nothing to tell.
    writeBySql(L"DROP TABLE Typen;");
    database.LoadTypes();
    EXPECT_EQ(Names{L"eins"}, typeNames());
}

TEST_F(DatabaseTest, NoFailingCallLeavesAConnectionOrCostsALaterLoad) {
    write(L"(1, 'eins', 'E:', NULL), (2, 'zwei', 'E:', NULL)");
    world.messages.strict = false;
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        world.messages.clear();
        automation.clear();
        automation.failAt(failing, error);
        database.LoadTypes();
        failed = automation.count() >= failing;
        EXPECT_EQ(failing <= 3 ? Names{openFailed} : Names{}, world.messages.texts()) << failing;
        EXPECT_EQ(0, heldObjects()) << failing;
        EXPECT_TRUE(failing <= 3 || automation.calls().back().className == L"Connection") << failing;
        automation.heal();
        database.LoadTypes();
        EXPECT_EQ((Names{L"eins", L"zwei"}), typeNames()) << failing;
    }
}

TEST_F(DatabaseTest, WritesFoldersBackFromTheCurrentRowOn) {
    write(L"(1, 'eins', 'E:', NULL), (2, 'zwei', 'E:', NULL), (3, 'drei', 'E:', NULL)");
    CTypen types;
    types.AddTyp(1, L"eins", L"G:\\1", L"", L"1");
    types.AddTyp(3, L"drei", L"G:\\3", L"", L"3");
    Recordset rows = openTypes();
    EXPECT_FALSE(types.WriteToDatabase(rows, world.messages));
    rows.MoveFirst();
    Names folders;
    for (; !rows.atEnd(); rows.MoveNext()) folders.push_back(rows.text(L"Verzeichnis"));
    EXPECT_EQ((Names{L"G:\\1", L"E:", L"G:\\3"}), folders);

    rows.MoveFirst();
    const std::wstring message = L"Speicherung der Verzeichnisse nicht möglich!";
    world.messages.expect(message);
    automation.clear();
    automation.failAt(1, error);
    EXPECT_TRUE(types.Item(1)->WriteToDatabase(rows, world.messages));
    EXPECT_EQ((ShownBox{message, L"Blattwart", MessageButtons::ok, MessageIcon::exclamation}),
              world.messages.shown.back());
}

}  // namespace
}  // namespace blattwart::test
