#include "demo/ado/Connection.h"

#include <array>

#include "demo/ado/AdoErrors.h"
#include "demo/ado/DatabaseFile.h"
#include "demo/ado/Recordset.h"

namespace demo::ado {

using blattwart::Value;

namespace {

namespace connectionMember {
enum : std::int32_t { state = 5, close = 6, execute = 7, open = 10, cursorLocation = 15 };
}  // namespace connectionMember

/// Cuts off and returns what stands before the delimiter, which goes too.
std::wstring_view cut(std::wstring_view& text, wchar_t delimiter) {
    const auto part = text.substr(0, text.find(delimiter));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

/// The value of a key in "KEY=value;key="value";"; empty when the key is missing.
std::wstring settingOf(std::wstring_view connectionString, std::wstring_view key) {
    while (!connectionString.empty()) {
        const auto name = cut(connectionString, L'=');
        const bool quoted = connectionString.starts_with(L'"');
        if (quoted) connectionString.remove_prefix(1);
        const auto value = cut(connectionString, quoted ? L'"' : L';');
        if (quoted) cut(connectionString, L';');
        if (equalIgnoringCase(name, key)) return std::wstring(value);
    }
    return {};
}

}  // namespace

std::span<const MemberName> Connection::members() const {
    static constexpr std::array names = {
        MemberName{L"State", connectionMember::state}, MemberName{L"Close", connectionMember::close},
        MemberName{L"Execute", connectionMember::execute}, MemberName{L"Open", connectionMember::open},
        MemberName{L"CursorLocation", connectionMember::cursorLocation}};
    return names;
}

Value Connection::invoke(std::int32_t id, Access access, Arguments arguments) {
    if (id == connectionMember::cursorLocation) return cursorLocation(access, arguments);
    requireRead(access);
    switch (id) {
        case connectionMember::state:
            return std::int32_t{database_ ? 1 : 0};
        case connectionMember::close:
            close();
            return {};
        case connectionMember::execute:
            execute(textAt(arguments, 0));
            return {};
        case connectionMember::open:
            open(textAt(arguments, 0));
            return {};
        default:
            fail(AdoError::memberNotFound);
    }
}

Value Connection::cursorLocation(Access access, Arguments arguments) {
    if (access != Access::put) return cursorLocation_;
    constexpr std::int32_t server = 2;
    constexpr std::int32_t client = 3;
    const auto location = numberAt(arguments, 0, 0);
    if (location != server && location != client) fail(AdoError::invalidArgument);
    cursorLocation_ = location;
    return {};
}

std::wstring Connection::fileIn(const std::wstring& connectionString) const {
    if (database_) fail(AdoError::objectOpen);
    const auto provider = settingOf(connectionString, L"Provider");
    if (faults_.providerMissing || !equalIgnoringCase(provider, L"Microsoft.Jet.OLEDB.4.0"))
        fail(AdoError::providerNotFound);
    return settingOf(connectionString, L"Data Source");
}

void Connection::open(const std::wstring& connectionString) {
    const auto path = fileIn(connectionString);
    if (!fileExists(path)) fail(AdoError::unspecified, L"Datei '" + path + L"' nicht gefunden.");
    database_ = std::make_unique<Database>(path);
}

void Connection::create(const std::wstring& connectionString) {
    const auto path = fileIn(connectionString);
    if (fileExists(path)) fail(AdoError::databaseExists);
    database_ = Database::create(path);
}

void Connection::execute(const std::wstring& statement) {
    if (!database_) fail(AdoError::objectClosed);
    database_->execute(statement);
}

void Connection::close() {
    if (!database_) fail(AdoError::objectClosed);
    if (faults_.refusesToClose) fail(AdoError::unspecified);
    for (const auto& weak : recordsets_)
        if (const auto recordset = weak.lock()) recordset->drop();
    recordsets_.clear();
    database_.reset();
}

RowSet Connection::read(const std::wstring& source) {
    if (!database_) fail(AdoError::invalidConnection);
    return database_->read(source);
}

void Connection::adopt(std::weak_ptr<Recordset> recordset) {
    recordsets_.push_back(std::move(recordset));
}

}  // namespace demo::ado
