#include "demo/mdb/Database.h"

#include <gtest/gtest.h>

#include "demo/mdb/DefinitionTables.h"
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
    rows.reserve(4000);
    for (std::int32_t i = 0; i < 4000; ++i) rows.push_back(blockRow((i * 2741) % 4000 - 2000, i));
    const auto blocks = blocksTable(std::move(rows));
    writeDatabase(file_, {blocks, typesTable()});

    EXPECT_EQ(exported(file_, "Bloecke"), expected(blocks));
    EXPECT_EQ(count("Bloecke"), "4000\n");
    EXPECT_EQ(exported(file_, "Typen"), "");
    EXPECT_EQ(count("Typen"), "0\n");
}

}  // namespace
}  // namespace demo::mdb
