#pragma once

#include <optional>
#include <vector>

#include "demo/mdb/Bytes.h"
#include "demo/mdb/Table.h"

namespace demo::mdb {

enum class TableKind : std::uint8_t { user = 0x4E, system = 0x53 };

/// A pair of references to usage maps: pages in use, pages with room.
struct MapPair {
    std::uint32_t used = 0;
    std::uint32_t free = 0;
};

/// Where the primary key lies.
struct IndexPlace {
    std::uint32_t map = 0;
    std::uint32_t root = 0;
};

/// What a table definition refers to.
struct TablePlaces {
    MapPair data;
    std::optional<IndexPlace> index;
    /// One for each memo and OLE column.
    std::vector<MapPair> longColumns;
};

/// The page that defines a table. Throws RuntimeError when the definition does not fit one page.
Bytes definitionPage(const Table& table, TableKind kind, const TablePlaces& places);

}  // namespace demo::mdb
