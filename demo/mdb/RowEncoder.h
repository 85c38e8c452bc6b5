#pragma once

#include "demo/mdb/Bytes.h"
#include "demo/mdb/Table.h"

namespace demo::mdb {

bool isVariable(ColumnType type);
/// Bytes that a value of a fixed type takes; a boolean takes none, it is a bit of the null mask.
std::uint16_t fixedSize(ColumnType type);
/// True for the types that may keep their values in pages of their own.
bool isLong(ColumnType type);

/// A row as it lies in a data page. Throws RuntimeError with errorNumber::typeMismatch when a value is not of
/// its column's type or too long.
Bytes encodeRow(const std::vector<Column>& columns, const Row& row);

}  // namespace demo::mdb
