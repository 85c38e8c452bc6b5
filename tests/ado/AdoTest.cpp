#include "demo/ado/Ado.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "demo/samples/SampleDatabase.h"
#include "support/ErrorOf.h"

namespace demo {
namespace {

using blattwart::Argument;
using blattwart::Null;
using blattwart::ObjectPtr;
using blattwart::Value;

Value get(const ObjectPtr& object, std::wstring_view name) {
    return object->get({L"", name});
}

Value call(const ObjectPtr& object, std::wstring_view name, std::initializer_list<Value> values = {}) {
    const std::vector<Argument> arguments(values.begin(), values.end());
    return object->call({L"", name}, arguments);
}

ObjectPtr objectIn(const Value& value) {
    return *value.as<ObjectPtr>();
}

Value cell(const ObjectPtr& recordset, const Value& field) {
    return get(objectIn(call(objectIn(get(recordset, L"Fields")), L"Item", {field})), L"Value");
}

template <class Statement>
std::uint32_t errorOf(Statement&& statement) {
    return static_cast<std::uint32_t>(blattwart::test::errorOf(statement));
}

class Ado : public testing::Test {
  protected:
    Ado() { std::filesystem::create_directories(folder_); }
    ~Ado() override { std::filesystem::remove_all(folder_); }

    std::wstring connectionString() const {
        return L"PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + wideFile_ + L";";
    }
    ObjectPtr connect(const AdoFaults& faults = {}) const {
        auto connection = makeAdo(L"ADODB.Connection", faults);
        connection->put({L"", L"CursorLocation"}, 3);
        call(connection, L"Open", {connectionString(), L"", L"", -1});
        return connection;
    }
    ObjectPtr select(const ObjectPtr& connection, const std::wstring& table) const {
        auto recordset = makeAdo(L"ADODB.Recordset");
        call(recordset, L"Open", {L"select * from " + table, connection, 3, 3, -1});
        return recordset;
    }
    ObjectPtr make(std::wstring_view statements = sampleRows()) const {
        makeDatabase(wideFile_, statements);
        return connect();
    }

    // A blank and umlauts in the folder, as users have them.
    const std::string folder_ = testing::TempDir() + "Büro " + std::to_string(getpid());
    const std::string file_ = folder_ + "/Tarvix.mdb";
    const std::u32string letters_ = std::filesystem::path(folder_).u32string();
    const std::wstring wideFolder_{letters_.begin(), letters_.end()};
    const std::wstring wideFile_ = wideFolder_ + L"/Tarvix.mdb";
};

TEST_F(Ado, EachColumnTypeKeepsItsType) {
    const std::wstring memo = std::wstring(1000, L'ä') + std::wstring(700, L'€');
    const auto connection = make(
        L"CREATE TABLE Alle (ja BIT, byte TINYINT, kurz SMALLINT, lang INTEGER, doppelt DOUBLE, "
        L"wann TIMESTAMP, text VARCHAR(255), memo TEXT);"
        L"INSERT INTO Alle VALUES (1, 200, -5, -70000, 0.1, '2024-01-01 18:00:00', 'größer als €', '" +
        memo + L"');" + L"INSERT INTO Alle VALUES (0, 0, 0, 0, 1e-300, '1899-12-30 12:00:00', '', 'x');" +
        L"INSERT INTO Alle (ja) VALUES (0);");
    const std::vector<std::vector<Value>> rows{
        {true, std::uint8_t{200}, std::int16_t{-5}, -70000, 0.1, blattwart::Date{45292.75}, L"größer als €",
         memo},
        {false, std::uint8_t{0}, std::int16_t{0}, 0, 1e-300, blattwart::Date{0.5}, L"", L"x"},
        {false, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}}};
    const auto recordset = select(connection, L"Alle");
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            EXPECT_EQ(cell(recordset, static_cast<std::int32_t>(i)), row[i]) << i;
        call(recordset, L"MoveNext");
    }
}

TEST_F(Ado, ChangesAreStoredByUpdateOrByMovingAway) {
    const auto recordset = select(make(), L"Typen");
    const auto clone = objectIn(call(recordset, L"Clone", {1}));
    const auto folder = objectIn(call(objectIn(get(recordset, L"Fields")), L"Item", {L"Verzeichnis"}));
    folder->put({L"", L"Value"}, L"D:\\Übung");
    EXPECT_EQ(get(folder, L"Value"), Value(L"D:\\Übung"));
    EXPECT_TRUE(cell(clone, L"Verzeichnis").isNull());
    EXPECT_EQ(errorOf([&] { call(recordset, L"Close"); }), 0x800A0C93);
    call(recordset, L"Update");
    EXPECT_EQ(cell(clone, L"Verzeichnis"), Value(L"D:\\Übung"));

    folder->put({L"", L"Value"}, Null{});
    call(recordset, L"MoveNext");
    EXPECT_TRUE(cell(clone, L"Verzeichnis").isNull());
    EXPECT_EQ(errorOf([&] { folder->put({L"", L"Value"}, 5); }), 0x80020005);
    const auto cloned = objectIn(call(objectIn(get(clone, L"Fields")), L"Item", {L"typ"}));
    EXPECT_EQ(errorOf([&] { cloned->put({L"", L"Value"}, L"x"); }), 0x800A0CB3);
}

TEST_F(Ado, OpeningFailsAsTheRealOneDoes) {
    make();
    const auto open = [](const std::wstring& text, const AdoFaults& faults = {}) {
        const auto connection = makeAdo(L"adodb.connection", faults);
        const auto error = errorOf([&] { call(connection, L"Open", {text}); });
        EXPECT_EQ(get(connection, L"State"), Value(error == 0 ? 1 : 0));
        return error;
    };
    EXPECT_EQ(open(connectionString()), 0U);
    EXPECT_EQ(open(L"provider=microsoft.jet.oledb.4.0;data source=" + wideFile_), 0U);
    EXPECT_EQ(open(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + wideFolder_ + L"\\Tarvix.mdb"), 0U);
    EXPECT_EQ(open(connectionString(), {.providerMissing = true}), 0x800A0E7A);
    EXPECT_EQ(open(L"Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + wideFile_), 0x800A0E7A);
    EXPECT_EQ(open(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/fehlt.mdb;"), 0x80004005);
    EXPECT_EQ(open(L""), 0x800A0E7A);
    std::ofstream(file_) << "kein Jet";
    EXPECT_EQ(open(connectionString()), 0x80004005);
    EXPECT_EQ(errorOf([] { makeAdo(L"ADODB.Stream"); }), 0x800401F3);
}

}  // namespace
}  // namespace demo
