#include "data/basDatenbank.h"

#include "platform/Conversions.h"

namespace blattwart {

namespace {

constexpr std::wstring_view connectionClass = L"Connection";
constexpr std::wstring_view recordsetClass = L"Recordset";

// ADO's numbers.
constexpr std::int32_t unspecified = -1;
constexpr std::int32_t clientCursor = 3;
constexpr std::int32_t staticCursor = 3;
constexpr std::int32_t optimisticLock = 3;
constexpr std::int32_t stateOpen = 1;

void closeIfOpen(AutomationObject& object, std::wstring_view className, const Locale& locale) {
    if (toInt32(object.get({className, L"State"}), locale) == stateOpen) object.call({className, L"Close"});
}

}  // namespace

basDatenbank::basDatenbank(Platform& platform, const basRegistry& registry,
                           std::function<std::wstring()> templateFolder)
    : platform_(platform),
      registry_(registry),
      folders_{platform.files.applicationFolder(), std::move(templateFolder)} {}

void basDatenbank::OpenDefDB() {
    try {
        connection_ = platform_.automation.create(L"ADODB.Connection");
        connection_->put({connectionClass, L"CursorLocation"}, clientCursor);
        const std::wstring source = L"PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + file() + L";";
        connection_->call({connectionClass, L"Open"},
                          {Value(source), Value(L""), Value(L""), Value(unspecified)});
    } catch (const RuntimeError&) {
        connection_.reset();
        platform_.messages.reportError(L"Fehler beim Öffnen der Def-Datenbank!");
    }
}

void basDatenbank::CloseDefDB() {
    if (!connection_) return;
    ignoringErrors([&] { closeIfOpen(*connection_, connectionClass, platform_.locale); });
    connection_.reset();
}

void basDatenbank::LoadTypes() {
    load(L"select * from Typen", [&](Recordset& rows) {
        types_ = CTypen();
        types_.ReadFromDatabase(rows, folders_);
    });
}

void basDatenbank::LoadBlocks() {
    load(L"SELECT * FROM Bloecke", [&](Recordset& rows) { FillBlocks(rows); });
}

bool basDatenbank::FillBlocks(Recordset& rows) {
    blocks_ = {};
    return CBloecke::readBlocks(rows, blocks_);
}

void basDatenbank::load(std::wstring_view query, const std::function<void(Recordset&)>& read) {
    OpenDefDB();
    if (!connection_) return;
    ignoringErrors([&] { readQuery(query, read); });
    CloseDefDB();
}

void basDatenbank::readQuery(std::wstring_view query, const std::function<void(Recordset&)>& read) {
    const ObjectPtr original = platform_.automation.create(L"ADODB.Recordset");
    original->call({recordsetClass, L"Open"}, {Value(query), Value(connection_), Value(staticCursor),
                                               Value(optimisticLock), Value(unspecified)});
    ignoringErrors([&] {
        Recordset clone(toObject(original->call({recordsetClass, L"Clone"}, {Value(unspecified)})),
                        platform_.locale);
        read(clone);
    });
    closeIfOpen(*original, recordsetClass, platform_.locale);
}

}  // namespace blattwart
