#include "demo/mdb/DefinitionTables.h"

namespace demo::mdb {

std::vector<Table> startTables() {
    using blattwart::Null;
    // The folders stay empty: type 1 then takes the template folder of the CAD host, or the library beside
    // the program where there is none. The blocks are the office's own.
    std::vector<Row> types = {
        {1, L"Vorlagen", Null{}, L"Zeichnungsvorlagen"},
        {2, L"Stempelfelder", Null{}, L"Stempelfelder der Layouts"},
        {4, L"Nordpfeile", Null{}, L"Nordpfeile der Layouts"},
        {7, L"Legenden", Null{}, L"Legenden der Layouts"},
    };
    return {typesTable(std::move(types)), blocksTable()};
}

}  // namespace demo::mdb
