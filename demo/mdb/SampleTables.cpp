#include <numbers>

#include "demo/mdb/DefinitionTables.h"

namespace demo::mdb {

using blattwart::Null;
using blattwart::Value;

namespace {

struct Placement {
    double x;
    double y;
    double scale = 1.0;
    double degrees = 0.0;
};

Row block(std::int32_t id, std::int32_t type, Value name, Value label, const Placement& at, Value layer) {
    constexpr std::int32_t firstTemplate = 100;
    return {id,
            type,
            firstTemplate + id,
            std::move(name),
            std::move(label),
            at.x,
            at.y,
            0.0,
            at.scale,
            at.scale,
            at.scale,
            at.degrees * std::numbers::pi / 180,
            std::move(layer)};
}

}  // namespace

std::vector<Table> sampleTables() {
    // The empty folder of type 1 stands for the template folder of the CAD host, the others for the library's
    // own.
    std::vector<Row> types = {
        {1, L"Vorlagen", Null{}, L"Zeichnungsvorlagen des Büros"},
        {2, L"Stempelfelder", Null{}, L"Schriftfelder für alle Blattgrößen"},
        {3, L"Blattränder", Null{}, L"Rahmen mit Faltmarken"},
        {4, L"Nordpfeile", Null{}, Null{}},
        {5, L"Schilder", Null{}, L"Hinweisschilder und Türschilder"},
        {6, L"Straßenzubehör", L"C:\\Tarvix\\Straßenzubehör", L"Maße in Metern"},
        {7, L"Legenden", Null{}, L"Zeichenerklärungen"},
    };
    std::vector<Row> blocks = {
        block(1, 2, L"TX_STEMPEL_A4", L"Stempelfeld A4", {.x = 20, .y = 10}, L"TX_STEMPEL"),
        block(2, 2, L"TX_STEMPEL_A3", L"Stempelfeld A3", {.x = 230, .y = 10}, L"TX_STEMPEL"),
        block(3, 2, L"TX_STEMPEL_A0", L"Stempelfeld A0", {.x = 999, .y = 10}, L"TX_STEMPEL"),
        block(4, 3, L"TX_RAND_A3", L"Blattrand A3", {.x = 0, .y = 0}, L"TX_RAND"),
        block(5, 4, L"TX_NORDPFEIL", L"Nordpfeil", {.x = 380.5, .y = 255, .scale = 1.5, .degrees = 30},
              L"TX_PLAN"),
        block(6, 4, L"TX_NORDROSE", L"Nordpfeil mit Windrose", {.x = 370, .y = 250, .degrees = 45}, Null{}),
        block(7, 7, L"TX_LEGENDE", L"Legende groß", {.x = 20, .y = 120}, L"TX_LEGENDE"),
        block(8, 7, L"TX_LEGENDE_KLEIN", L"Legende klein", {.x = 20, .y = 200, .scale = 0.5}, Null{}),
        block(9, 5, L"TX_TUERSCHILD", L"Türschild", {.x = 0, .y = 0, .degrees = 90}, Null{}),
    };
    return {typesTable(std::move(types)), blocksTable(std::move(blocks))};
}

}  // namespace demo::mdb
