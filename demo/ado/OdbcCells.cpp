#include "demo/ado/OdbcCells.h"

#include <array>
#include <chrono>
#include <optional>

#include "demo/ado/Odbc.h"

namespace demo::ado {

using blattwart::Currency;
using blattwart::Date;
using blattwart::Null;
using blattwart::Value;

namespace {

using Utf16 = std::vector<SQLWCHAR>;

std::wstring fromUtf16(const Utf16& units) {
    std::wstring text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        auto code = static_cast<std::uint32_t>(units[i]);
        const bool pair = code >= 0xD800 && code < 0xDC00 && i + 1 < units.size();
        if (sizeof(wchar_t) > 2 && pair) code = 0x10000 + ((code - 0xD800) << 10) + (units[++i] - 0xDC00U);
        text += static_cast<wchar_t>(code);
    }
    return text;
}

FieldKind kindOf(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIT:
            return FieldKind::boolean;
        case SQL_TINYINT:
            return FieldKind::byte;
        case SQL_SMALLINT:
            return FieldKind::smallInteger;
        case SQL_INTEGER:
            return FieldKind::integer;
        case SQL_FLOAT:  // what the driver calls its singles
        case SQL_REAL:
            return FieldKind::single;
        case SQL_DOUBLE:
            return FieldKind::doubleFloat;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return FieldKind::currency;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            return FieldKind::date;
        default:
            return FieldKind::text;
    }
}

template <class T>
std::optional<T> fixedCell(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type) {
    T content{};
    SQLLEN length = 0;
    check(SQLGetData(statement, column, type, &content, sizeof content, &length));
    if (length == SQL_NULL_DATA) return std::nullopt;
    return content;
}

/// Null for a missing value; the driver answers "no data" for an empty memo.
std::optional<std::wstring> textCell(SQLHSTMT statement, SQLUSMALLINT column) {
    std::array<SQLWCHAR, 1024> part{};
    constexpr auto room = static_cast<SQLLEN>(part.size() - 1);
    Utf16 units;
    for (;;) {
        SQLLEN length = 0;
        const auto result = SQLGetData(statement, column, SQL_C_WCHAR, part.data(), sizeof part, &length);
        if (result == SQL_NO_DATA) break;
        check(result);
        if (length == SQL_NULL_DATA) return std::nullopt;
        const auto rest = length / static_cast<SQLLEN>(sizeof(SQLWCHAR));
        const bool cut = length == SQL_NO_TOTAL || rest > room;
        units.insert(units.end(), part.begin(), part.begin() + (cut ? room : rest));
        if (!cut) break;
    }
    return fromUtf16(units);
}

/// Reads "-12.3400": the driver always gives four decimals.
std::optional<Currency> currencyCell(SQLHSTMT statement, SQLUSMALLINT column) {
    const auto text = textCell(statement, column);
    if (!text) return std::nullopt;
    std::int64_t digits = 0;
    for (const wchar_t letter : *text)
        if (letter >= L'0' && letter <= L'9') digits = digits * 10 + (letter - L'0');
    return Currency{text->starts_with(L'-') ? -digits : digits};
}

std::optional<Date> dateCell(SQLHSTMT statement, SQLUSMALLINT column) {
    using namespace std::chrono;
    const auto stamp = fixedCell<SQL_TIMESTAMP_STRUCT>(statement, column, SQL_C_TYPE_TIMESTAMP);
    if (!stamp) return std::nullopt;
    constexpr auto dayZero = sys_days{year{1899} / December / 30};
    const auto day = sys_days{year{stamp->year} / month{stamp->month} / std::chrono::day{stamp->day}};
    const auto time = hours{stamp->hour} + minutes{stamp->minute} + seconds{stamp->second};
    return Date{static_cast<double>((day - dayZero).count()) + duration<double, days::period>(time).count()};
}

template <class T>
Value orNull(const std::optional<T>& content) {
    return content ? Value(*content) : Value(Null{});
}

Value booleanCell(SQLHSTMT statement, SQLUSMALLINT column) {
    const auto bit = fixedCell<std::uint8_t>(statement, column, SQL_C_BIT);
    return bit ? Value(*bit != 0) : Value(Null{});
}

}  // namespace

FieldInfo describeField(void* statement, std::uint16_t column) {
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    check(SQLDescribeColW(statement, column, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                          &type, nullptr, nullptr, nullptr));
    return {fromUtf16(Utf16(name.begin(), name.begin() + length)), kindOf(type)};
}

// The driver refuses negative numbers for the C types that say "signed", not for their older forms.
Value readCell(void* statement, std::uint16_t column, FieldKind kind) {
    switch (kind) {
        case FieldKind::boolean:
            return booleanCell(statement, column);
        case FieldKind::byte:
            return orNull(fixedCell<std::uint8_t>(statement, column, SQL_C_UTINYINT));
        case FieldKind::smallInteger:
            return orNull(fixedCell<std::int16_t>(statement, column, SQL_C_SHORT));
        case FieldKind::integer:
            return orNull(fixedCell<std::int32_t>(statement, column, SQL_C_LONG));
        case FieldKind::single:
            return orNull(fixedCell<float>(statement, column, SQL_C_FLOAT));
        case FieldKind::doubleFloat:
            return orNull(fixedCell<double>(statement, column, SQL_C_DOUBLE));
        case FieldKind::currency:
            return orNull(currencyCell(statement, column));
        case FieldKind::date:
            return orNull(dateCell(statement, column));
        case FieldKind::text:
            break;
    }
    return orNull(textCell(statement, column));
}

}  // namespace demo::ado
