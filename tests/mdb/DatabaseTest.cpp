#include "mdb/Database.h"

#include <gtest/gtest.h>

#include "mdb/DefinitionTables.h"
#include "MdbTools.h"
#include "platform/RuntimeError.h"

namespace demo::mdb {
namespace {

using blattwart::Null;
using test::expected;
using test::exported;
using test::output;

class DatabaseFile : public testing::Test {
  protected:
    void TearDown() override { std::filesystem::remove(file_); }

    std::string count(const std::string& table) {
        return output("mdb-count " + file_.string() + " " + table);
    }

    const std::filesystem::path file_ =
        testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".mdb";
};

Row blockRow(std::int32_t id, std::int32_t type) {
    return {id,
            type,
            Null{},
            L"BLOCK_" + std::to_wstring(id),
            L"Größe " + std::to_wstring(id),
            id / 3.0,
            -0.1,
            0.0,
            1.0,
            1.0,
            Null{},
            0.5,
            id % 3 == 0 ? blattwart::Value(Null{}) : blattwart::Value(L"Ebene")};
}

TEST_F(DatabaseFile, SampleIsReadBackValueForValue) {
    const auto tables = sampleTables();
    writeDatabase(file_, tables);

    EXPECT_EQ(output("mdb-tables -1 " + file_.string()), "Typen\nBloecke\n");
    EXPECT_EQ(exported(file_, "Typen"), expected(tables[0]));
    EXPECT_EQ(exported(file_, "Bloecke"), expected(tables[1]));
    EXPECT_EQ(count("Typen"), "7\n");
    EXPECT_EQ(count("Bloecke"), "9\n");
}

TEST_F(DatabaseFile, RowsFillManyPages) {
    std::vector<Row> rows;
    for (std::int32_t i = 0; i < 4000; ++i) rows.push_back(blockRow((i * 2741) % 4000 - 2000, i));
    const auto blocks = blocksTable(std::move(rows));
    writeDatabase(file_, {blocks, typesTable()});

    EXPECT_EQ(exported(file_, "Bloecke"), expected(blocks));
    EXPECT_EQ(count("Bloecke"), "4000\n");
    EXPECT_EQ(exported(file_, "Typen"), "");
    EXPECT_EQ(count("Typen"), "0\n");
}

TEST_F(DatabaseFile, IdsMayBeTextsOrRepeat) {
    const auto texts = typesTable({{L"zwölf", L"a", L"C:\\Größe", Null{}}, {Null{}, L"b", Null{}, Null{}}},
                                  ColumnType::text);
    writeDatabase(file_, {texts});
    EXPECT_EQ(exported(file_, "Typen"), "zwölf|a|C:\\Größe|NULL\nNULL|b|NULL|NULL\n");

    auto twins =
        typesTable({{3, L"a", Null{}, Null{}}, {3, L"b", Null{}, Null{}}, {Null{}, L"c", Null{}, Null{}}});
    twins.key.reset();
    writeDatabase(file_, {twins});
    EXPECT_EQ(exported(file_, "Typen"), expected(twins));
}

TEST(DatabaseBytes, RefuseWhatDoesNotSuit) {
    struct Case {
        const char* what;
        Table table;
        std::int32_t error;
    };
    std::vector<Row> tooMany;
    const std::wstring text(255, L'x');
    for (std::int32_t i = 0; i < 2000; ++i) tooMany.push_back({i, L"a", text, text});
    namespace number = blattwart::errorNumber;
    const std::vector<Case> cases = {
        {"wrong type", typesTable({{L"1", L"a", Null{}, Null{}}}), number::typeMismatch},
        {"long text", typesTable({{1, std::wstring(51, L'ä'), Null{}, Null{}}}), number::typeMismatch},
        {"missing value", typesTable({{1, L"a"}}), number::typeMismatch},
        {"null as key", typesTable({{Null{}, L"a", Null{}, Null{}}}), number::typeMismatch},
        {"key twice", typesTable({{1, L"a", Null{}, Null{}}, {1, L"b", Null{}, Null{}}}),
         number::duplicateKey},
        {"too many rows", typesTable(std::move(tooMany)), number::overflow},
    };
    for (const auto& [what, table, error] : cases) {
        SCOPED_TRACE(what);
        try {
            databaseBytes({table});
            ADD_FAILURE() << "no error";
        } catch (const blattwart::RuntimeError& caught) {
            EXPECT_EQ(caught.number(), error);
        }
    }
}

}  // namespace
}  // namespace demo::mdb
