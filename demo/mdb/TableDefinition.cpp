#include "demo/mdb/TableDefinition.h"

#include <algorithm>

#include "demo/mdb/PageFile.h"
#include "demo/mdb/RowEncoder.h"
#include "platform/RuntimeError.h"

namespace demo::mdb {

namespace {

constexpr std::uint32_t definitionMark = 0x659;
constexpr std::uint32_t indexMark = 0x783;

std::uint32_t count(std::size_t number) {
    return static_cast<std::uint32_t>(number);
}

void addHead(Bytes& page, const Table& table, TableKind kind, const TablePlaces& places) {
    page.add8(2);
    page.add8(1);
    page.addZeros(10);  // free bytes and length are set at the end
    page.add32(definitionMark);
    page.add32(count(table.rows.size()));
    page.add32(0);
    page.add32(1);
    page.addZeros(12);
    page.add8(static_cast<std::uint32_t>(kind));
    page.add16(count(table.columns.size()));
    page.add16(count(std::ranges::count_if(table.columns, isVariable, &Column::type)));
    page.add16(count(table.columns.size()));
    page.add32(places.index ? 1 : 0);
    page.add32(places.index ? 1 : 0);
    page.add32(places.data.used);
    page.add32(places.data.free);
    if (!places.index) return;
    page.add32(0);
    page.add32(count(table.rows.size()));
    page.add32(0);
}

std::uint32_t columnFlags(ColumnType type) {
    constexpr std::uint32_t fixedLength = 1;
    constexpr std::uint32_t mayBeNull = 2;
    if (type == ColumnType::boolean) return fixedLength;
    return isVariable(type) ? mayBeNull : fixedLength | mayBeNull;
}

std::uint32_t columnSize(const Column& column) {
    return column.type == ColumnType::text ? 2U * column.characters : fixedSize(column.type);
}

void addColumns(Bytes& page, const std::vector<Column>& columns) {
    constexpr std::uint32_t sortOrder = 0x409;
    std::uint32_t variableIndex = 0;
    std::uint32_t fixedOffset = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto type = columns[i].type;
        const bool holdsText = type == ColumnType::text || type == ColumnType::memo;
        page.add8(static_cast<std::uint32_t>(type));
        page.add32(definitionMark);
        page.add16(count(i));
        page.add16(variableIndex);
        page.add16(count(i));
        page.add16(holdsText ? sortOrder : 0);
        page.add16(0);
        page.add8(columnFlags(type));
        page.add8(holdsText ? 1 : 0);
        page.add32(0);
        page.add16(isVariable(type) ? 0 : fixedOffset);
        page.add16(columnSize(columns[i]));
        if (isVariable(type)) ++variableIndex;
        fixedOffset += fixedSize(type);
    }
    for (const auto& column : columns) page.addName(column.name);
}

void addRealIndex(Bytes& page, std::size_t keyColumn, const IndexPlace& index) {
    constexpr int columnSlots = 10;
    page.add32(indexMark);
    page.add16(count(keyColumn));
    page.add8(1);
    for (int i = 1; i < columnSlots; ++i) {
        page.add16(0xFFFF);
        page.add8(0);
    }
    page.add32(index.map);
    page.add32(index.root);
    page.add32(0);
    page.add8(0x89);  // unique, required
    page.addZeros(5);
}

void addPrimaryKey(Bytes& page) {
    page.add32(definitionMark);
    page.addZeros(9);
    page.add32(0xFFFFFFFF);
    page.add32(0);
    page.add8(4);
    page.add8(4);
    page.add8(1);  // is the primary key
    page.add32(0);
    page.addName(L"PrimaryKey");
}

void addLongColumns(Bytes& page, const std::vector<Column>& columns, const std::vector<MapPair>& maps) {
    auto pair = maps.begin();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!isLong(columns[i].type)) continue;
        page.add16(count(i));
        page.add32(pair->used);
        page.add32(pair->free);
        ++pair;
    }
}

}  // namespace

Bytes definitionPage(const Table& table, TableKind kind, const TablePlaces& places) {
    Bytes page;
    addHead(page, table, kind, places);
    addColumns(page, table.columns);
    if (places.index) {
        addRealIndex(page, *table.key, *places.index);
        addPrimaryKey(page);
    }
    addLongColumns(page, table.columns, places.longColumns);
    page.add16(0xFFFF);
    const auto length = page.size();
    if (length > pageSize - 8)
        throw blattwart::RuntimeError(blattwart::errorNumber::overflow,
                                      L"Die Tabelle " + table.name + L" hat zu viele Spalten.");
    page.set16(2, count(pageSize - 8 - length));
    page.set32(8, count(length));
    page.addZeros(pageSize - length);
    return page;
}

}  // namespace demo::mdb
