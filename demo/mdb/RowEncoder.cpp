#include "demo/mdb/RowEncoder.h"

#include "platform/RuntimeError.h"

namespace demo::mdb {

using blattwart::Currency;
using blattwart::Date;
using blattwart::RuntimeError;
using blattwart::Value;

namespace {

template <class T>
const T& contentOf(const Column& column, const Value& value) {
    if (const T* content = value.as<T>()) return *content;
    throw RuntimeError(blattwart::errorNumber::typeMismatch, L"Falscher Typ in Spalte " + column.name + L".");
}

Bytes fixedCell(const Column& column, const Value& value) {
    Bytes cell;
    switch (column.type) {
        case ColumnType::byte:
            cell.add8(contentOf<std::uint8_t>(column, value));
            break;
        case ColumnType::integer:
            cell.add16(static_cast<std::uint16_t>(contentOf<std::int16_t>(column, value)));
            break;
        case ColumnType::longInteger:
            cell.add32(static_cast<std::uint32_t>(contentOf<std::int32_t>(column, value)));
            break;
        case ColumnType::currency:
            cell.add64(static_cast<std::uint64_t>(contentOf<Currency>(column, value).tenThousandths));
            break;
        case ColumnType::single:
            cell.addFloat(contentOf<float>(column, value));
            break;
        case ColumnType::date:
            cell.addDouble(contentOf<Date>(column, value).days);
            break;
        default:
            cell.addDouble(contentOf<double>(column, value));
            break;
    }
    return cell;
}

Bytes variableCell(const Column& column, const Value& value) {
    Bytes text;
    text.addText(contentOf<std::wstring>(column, value));
    if (column.type == ColumnType::text && text.size() / 2 > column.characters)
        throw RuntimeError(blattwart::errorNumber::typeMismatch,
                           L"Zu langer Text in Spalte " + column.name + L".");
    if (column.type != ColumnType::memo) return text;
    constexpr std::uint32_t inlineFlag = 0x80000000;
    Bytes memo;
    memo.add32(static_cast<std::uint32_t>(text.size()) | inlineFlag);
    memo.addZeros(8);
    memo.add(text);
    return memo;
}

/// In a boolean's place the null mask holds the value itself.
bool maskBit(const Column& column, const Value& value) {
    if (value.isNull()) return false;
    return column.type != ColumnType::boolean || contentOf<bool>(column, value);
}

Bytes nullMask(const std::vector<Column>& columns, const Row& row) {
    Bytes mask((columns.size() + 7) / 8);
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (maskBit(columns[i], row[i])) mask.setBit(0, i);
    return mask;
}

void addFixedArea(Bytes& bytes, const std::vector<Column>& columns, const Row& row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto& column = columns[i];
        if (isVariable(column.type) || column.type == ColumnType::boolean) continue;
        if (row[i].isNull())
            bytes.addZeros(fixedSize(column.type));
        else
            bytes.add(fixedCell(column, row[i]));
    }
}

void addVariableArea(Bytes& bytes, const std::vector<Column>& columns, const Row& row) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!isVariable(columns[i].type)) continue;
        starts.push_back(bytes.size());
        if (!row[i].isNull()) bytes.add(variableCell(columns[i], row[i]));
    }
    if (starts.empty()) return;
    bytes.add16(static_cast<std::uint32_t>(bytes.size()));
    for (auto start = starts.rbegin(); start != starts.rend(); ++start)
        bytes.add16(static_cast<std::uint32_t>(*start));
    bytes.add16(static_cast<std::uint32_t>(starts.size()));
}

}  // namespace

bool isLong(ColumnType type) {
    return type == ColumnType::memo || type == ColumnType::ole;
}

bool isVariable(ColumnType type) {
    return type == ColumnType::text || isLong(type);
}

std::uint16_t fixedSize(ColumnType type) {
    switch (type) {
        case ColumnType::byte:
            return 1;
        case ColumnType::integer:
            return 2;
        case ColumnType::longInteger:
        case ColumnType::single:
            return 4;
        case ColumnType::currency:
        case ColumnType::doubleFloat:
        case ColumnType::date:
            return 8;
        default:
            return 0;
    }
}

Bytes encodeRow(const std::vector<Column>& columns, const Row& row) {
    if (row.size() != columns.size())
        throw RuntimeError(blattwart::errorNumber::typeMismatch,
                           L"Eine Zeile hat nicht einen Wert je Spalte.");
    Bytes bytes;
    bytes.add16(static_cast<std::uint32_t>(columns.size()));
    addFixedArea(bytes, columns, row);
    addVariableArea(bytes, columns, row);
    bytes.add(nullMask(columns, row));
    return bytes;
}

}  // namespace demo::mdb
