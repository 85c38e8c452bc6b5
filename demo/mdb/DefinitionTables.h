#pragma once

#include "mdb/Table.h"

namespace demo::mdb {

/// Table `Typen`: TypenId, typ, Verzeichnis, Info. With an id type other than long integer, or with ids that
/// repeat or are null, the table has no key (`key` reset by the caller in the second case).
Table typesTable(std::vector<Row> rows = {}, ColumnType idType = ColumnType::longInteger);

/// Table `Bloecke`: blockId, TypenId, VorlagenId, block, Bezeichnung, EinfPunktX/Y/Z, FaktorX/Y/Z, Drehung,
/// Layer.
Table blocksTable(std::vector<Row> rows = {});

/// The tables of the demonstration: the types of a small library, with the blocks that its layouts carry.
std::vector<Table> sampleTables();

}  // namespace demo::mdb
