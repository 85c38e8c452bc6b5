#include "demo/mdb/DefinitionTables.h"

namespace demo::mdb {

Table typesTable(std::vector<Row> rows, ColumnType idType) {
    constexpr std::uint16_t idCharacters = 50;
    Table table;
    table.name = L"Typen";
    table.columns = {{L"TypenId", idType, idCharacters},
                     {L"typ", ColumnType::text, 50},
                     {L"Verzeichnis", ColumnType::text, 255},
                     {L"Info", ColumnType::text, 255}};
    table.rows = std::move(rows);
    if (idType == ColumnType::longInteger) table.key = 0;
    return table;
}

Table blocksTable(std::vector<Row> rows) {
    Table table;
    table.name = L"Bloecke";
    table.columns = {{L"blockId", ColumnType::longInteger},    {L"TypenId", ColumnType::longInteger},
                     {L"VorlagenId", ColumnType::longInteger}, {L"block", ColumnType::text, 100},
                     {L"Bezeichnung", ColumnType::text, 100},  {L"EinfPunktX", ColumnType::doubleFloat},
                     {L"EinfPunktY", ColumnType::doubleFloat}, {L"EinfPunktZ", ColumnType::doubleFloat},
                     {L"FaktorX", ColumnType::doubleFloat},    {L"FaktorY", ColumnType::doubleFloat},
                     {L"FaktorZ", ColumnType::doubleFloat},    {L"Drehung", ColumnType::doubleFloat},
                     {L"Layer", ColumnType::text, 100}};
    table.rows = std::move(rows);
    table.key = 0;
    return table;
}

}  // namespace demo::mdb
