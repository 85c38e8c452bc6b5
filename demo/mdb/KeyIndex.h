#pragma once

#include <vector>

#include "demo/mdb/PageFile.h"

namespace demo::mdb {

struct KeyEntry {
    std::int32_t key;
    RowPlace place;
};

/// Pages of an index; the root is the last of them.
using IndexPages = std::vector<std::uint32_t>;

/// Writes the pages of the primary key of the table defined on page `owner`. Throws RuntimeError with
/// errorNumber::duplicateKey when a key occurs twice.
IndexPages writeKeyIndex(PageFile& file, std::uint32_t owner, const std::vector<KeyEntry>& entries);

}  // namespace demo::mdb
