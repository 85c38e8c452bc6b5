#pragma once

#include <string>
#include <vector>

#include "platform/Value.h"

namespace demo::ado {

enum class FieldKind { boolean, byte, smallInteger, integer, single, doubleFloat, currency, date, text };

struct FieldInfo {
    std::wstring name;
    FieldKind kind;
};

/// A result in memory: one value of the column's kind, or null, for each field of each row.
struct RowSet {
    std::vector<FieldInfo> fields;
    std::vector<std::vector<blattwart::Value>> rows;
};

}  // namespace demo::ado
