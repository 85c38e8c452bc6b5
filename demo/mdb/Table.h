#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Value.h"

namespace demo::mdb {

/// Types of columns; the numbers are those of the file.
enum class ColumnType : std::uint8_t {
    boolean = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    currency = 5,
    single = 6,
    doubleFloat = 7,
    date = 8,
    text = 10,
    ole = 11,
    memo = 12
};

struct Column {
    std::wstring name;
    ColumnType type;
    /// Greatest length of a text column, 1 to 255; of no meaning for other types.
    std::uint16_t characters = 0;
};

/// One value for each column, of the very type of the column, or null. An OLE column takes null only.
using Row = std::vector<blattwart::Value>;

struct Table {
    std::wstring name;
    std::vector<Column> columns;
    std::vector<Row> rows;
    /// Position of the column of the primary key, a long integer without nulls and without doubles; none for
    /// a table without key.
    std::optional<std::size_t> key;
};

}  // namespace demo::mdb
