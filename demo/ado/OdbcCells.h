#pragma once

#include "demo/ado/RowSet.h"

namespace demo::ado {

/// Name and kind of a column of the statement's result; columns count from 1.
FieldInfo describeField(void* statement, std::uint16_t column);

/// The value of a column in the row just fetched. An empty text of a text column arrives as null, because the
/// driver does not tell the two apart.
blattwart::Value readCell(void* statement, std::uint16_t column, FieldKind kind);

}  // namespace demo::ado
