#include "data/NewDatabase.h"

#include <array>

#include "platform/Conversions.h"

namespace blattwart {

namespace {

// The folders stay empty: type 1 then takes the template folder of the CAD host, or the library beside the
// program where there is none. The blocks are the office's own. Names are bracketed, as some may be words of
// the provider's SQL.
constexpr std::array statements{
    L"CREATE TABLE [Typen] ([TypenId] INTEGER CONSTRAINT [PrimaryKey] PRIMARY KEY, [typ] VARCHAR(50), "
    L"[Verzeichnis] VARCHAR(255), [Info] VARCHAR(255))",
    L"CREATE TABLE [Bloecke] ([blockId] INTEGER CONSTRAINT [PrimaryKey] PRIMARY KEY, [TypenId] INTEGER, "
    L"[VorlagenId] INTEGER, [block] VARCHAR(100), [Bezeichnung] VARCHAR(100), [EinfPunktX] DOUBLE, "
    L"[EinfPunktY] DOUBLE, [EinfPunktZ] DOUBLE, [FaktorX] DOUBLE, [FaktorY] DOUBLE, [FaktorZ] DOUBLE, "
    L"[Drehung] DOUBLE, [Layer] VARCHAR(100))",
    L"INSERT INTO [Typen] ([TypenId], [typ], [Info]) VALUES (1, 'Vorlagen', 'Zeichnungsvorlagen')",
    L"INSERT INTO [Typen] ([TypenId], [typ], [Info]) VALUES (2, 'Stempelfelder', 'Stempelfelder der "
    L"Layouts')",
    L"INSERT INTO [Typen] ([TypenId], [typ], [Info]) VALUES (4, 'Nordpfeile', 'Nordpfeile der Layouts')",
    L"INSERT INTO [Typen] ([TypenId], [typ], [Info]) VALUES (7, 'Legenden', 'Legenden der Layouts')",
};

/// Engine type 5 is the format of Jet 4. In quotes a path may hold a semicolon.
std::wstring sourceFor(const std::wstring& file) {
    return L"Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Engine Type=5;Data Source=\"" + file + L"\";";
}

}  // namespace

void writeNewDatabase(AutomationObject& catalog, const std::wstring& file) {
    catalog.call({L"Catalog", L"Create"}, {Value(sourceFor(file))});
    const ObjectPtr connection = toObject(catalog.get({L"Catalog", L"ActiveConnection"}));
    for (const wchar_t* statement : statements)
        connection->call({L"Connection", L"Execute"}, {Value(statement)});
    connection->call({L"Connection", L"Close"});
}

}  // namespace blattwart
