#pragma once

#include "demo/mdb/Table.h"

namespace demo::mdb {

/// Table `Typen`: TypenId, typ, Verzeichnis, Info. TypenId is the key if it is a long integer; for rows whose
/// ids repeat or are null, reset `key`. Ids of another type, such as text, make rows whose id is no number.
Table typesTable(std::vector<Row> rows = {}, ColumnType idType = ColumnType::longInteger);

/// Table `Bloecke`: blockId, TypenId, VorlagenId, block, Bezeichnung, EinfPunktX/Y/Z, FaktorX/Y/Z, Drehung,
/// Layer.
Table blocksTable(std::vector<Row> rows = {});

/// The tables of the demonstration: the types of a small library, with the blocks that its layouts carry.
std::vector<Table> sampleTables();

/// The tables that an office starts with: the types that the program knows, no blocks.
std::vector<Table> startTables();

}  // namespace demo::mdb
