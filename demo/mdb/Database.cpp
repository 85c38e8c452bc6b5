#include "demo/mdb/Database.h"

#include <fstream>

#include "demo/mdb/FileHeader.h"
#include "demo/mdb/KeyIndex.h"
#include "demo/mdb/RowEncoder.h"
#include "demo/mdb/TableDefinition.h"
#include "demo/mdb/UsageMaps.h"
#include "platform/RuntimeError.h"

namespace demo::mdb {

using blattwart::Null;
using blattwart::RuntimeError;

namespace {

constexpr std::uint32_t globalMapPage = 1;
constexpr std::uint32_t catalogPage = 2;
constexpr std::uint32_t mapsPage = 3;

class Builder {
  public:
    Builder() {
        for (std::uint32_t page = 0; page <= mapsPage; ++page) file_.allocate();
    }

    std::vector<std::uint8_t> build(const std::vector<Table>& tables);

  private:
    struct Data {
        std::vector<std::uint32_t> pages;
        std::vector<RowPlace> places;
    };

    void writeTable(const Table& table, TableKind kind, std::uint32_t definition);
    Data writeRows(const Table& table, std::uint32_t owner);
    IndexPlace writeIndex(const Table& table, std::uint32_t owner, const std::vector<RowPlace>& places);
    Bytes globalMap() const;
    std::vector<std::uint8_t> joined() const;

    PageFile file_;
    UsageMaps maps_{mapsPage};
};

Builder::Data Builder::writeRows(const Table& table, std::uint32_t owner) {
    Data data;
    std::vector<Bytes> rows;
    const auto flush = [&] {
        if (!rows.empty()) file_.page(data.pages.back()) = dataPage(owner, rows);
        rows.clear();
    };
    for (const auto& row : table.rows) {
        auto bytes = encodeRow(table.columns, row);
        if (!fitsDataPage({}, bytes))
            throw RuntimeError(blattwart::errorNumber::overflow, L"Eine Zeile ist zu lang.");
        if (!fitsDataPage(rows, bytes)) flush();
        if (rows.empty()) data.pages.push_back(file_.allocate());
        data.places.push_back({data.pages.back(), static_cast<std::uint32_t>(rows.size())});
        rows.push_back(std::move(bytes));
    }
    flush();
    return data;
}

IndexPlace Builder::writeIndex(const Table& table, std::uint32_t owner, const std::vector<RowPlace>& places) {
    std::vector<KeyEntry> entries;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto* key = table.rows[i].at(*table.key).as<std::int32_t>();
        if (!key)
            throw RuntimeError(blattwart::errorNumber::typeMismatch, L"Der Primärschlüssel ist keine Zahl.");
        entries.push_back({*key, places[i]});
    }
    const auto pages = writeKeyIndex(file_, owner, entries);
    return {maps_.add(pages), pages.back()};
}

void Builder::writeTable(const Table& table, TableKind kind, std::uint32_t definition) {
    TablePlaces places;
    const auto data = writeRows(table, definition);
    places.data = {maps_.add(data.pages), maps_.add({})};
    if (table.key) places.index = writeIndex(table, definition, data.places);
    for (const auto& column : table.columns)
        if (isLong(column.type)) places.longColumns.push_back({maps_.add({}), maps_.add({})});
    file_.page(definition) = definitionPage(table, kind, places);
}

Row catalogRow(std::uint32_t id, std::uint32_t parent, std::wstring name, std::int16_t type,
               std::uint32_t flags) {
    return {static_cast<std::int32_t>(id),
            static_cast<std::int32_t>(parent),
            std::move(name),
            type,
            static_cast<std::int32_t>(flags),
            Null{}};
}

/// The system's table of all objects, so far without the user's tables.
Table emptyCatalog() {
    constexpr std::uint32_t root = 0x0F000000;
    constexpr std::uint32_t system = 0x80000000;
    constexpr std::int16_t container = 3;
    Table catalog;
    catalog.name = L"MSysObjects";
    catalog.columns = {{L"Id", ColumnType::longInteger},    {L"ParentId", ColumnType::longInteger},
                       {L"Name", ColumnType::text, 255},    {L"Type", ColumnType::integer},
                       {L"Flags", ColumnType::longInteger}, {L"LvProp", ColumnType::ole}};
    catalog.rows = {catalogRow(root + 1, root, L"Tables", container, system),
                    catalogRow(root + 2, root, L"Databases", container, system),
                    catalogRow(root + 3, root, L"Relationships", container, system),
                    catalogRow(catalogPage, root + 1, L"MSysObjects", 1, system)};
    return catalog;
}

/// Here a set bit means that the page is free.
Bytes Builder::globalMap() const {
    std::vector<std::uint32_t> free;
    for (auto page = file_.pageCount(); page < pageLimit; ++page) free.push_back(page);
    return dataPage(1, {usageMap(free), usageMap({})});
}

std::vector<std::uint8_t> Builder::joined() const {
    std::vector<std::uint8_t> bytes;
    for (const auto& page : file_.pages()) bytes.insert(bytes.end(), page.view().begin(), page.view().end());
    return bytes;
}

std::vector<std::uint8_t> Builder::build(const std::vector<Table>& tables) {
    constexpr std::uint32_t tablesId = 0x0F000001;
    auto catalog = emptyCatalog();
    for (const auto& table : tables) {
        const auto definition = file_.allocate();
        writeTable(table, TableKind::user, definition);
        catalog.rows.push_back(catalogRow(definition, tablesId, table.name, 1, 0));
    }
    writeTable(catalog, TableKind::system, catalogPage);
    file_.page(mapsPage) = maps_.page();
    file_.page(globalMapPage) = globalMap();
    file_.page(0) = headerPage();
    return joined();
}

}  // namespace

std::vector<std::uint8_t> databaseBytes(const std::vector<Table>& tables) {
    return Builder().build(tables);
}

void writeDatabase(const std::filesystem::path& file, const std::vector<Table>& tables) {
    const auto bytes = databaseBytes(tables);
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    for (const auto byte : bytes) stream.put(static_cast<char>(byte));
    stream.close();
    if (!stream)
        throw RuntimeError(blattwart::errorNumber::pathNotFound,
                           L"Die Datenbank kann nicht geschrieben werden.");
}

}  // namespace demo::mdb
