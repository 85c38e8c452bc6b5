#include "demo/ado/Connection.h"

#include <array>

#include "demo/ado/AdoErrors.h"
#include "demo/ado/DatabaseFile.h"
#include "demo/ado/Recordset.h"

namespace demo::ado {

using blattwart::Value;

namespace {

namespace connectionMember {
enum : std::int32_t { state = 5, close = 6, open = 10, cursorLocation = 15 };
}  // namespace connectionMember

/// The value of a key in "KEY=value;key=value;"; empty when the key is missing.
std::wstring settingOf(std::wstring_view connectionString, std::wstring_view key) {
    while (!connectionString.empty()) {
        const auto setting = connectionString.substr(0, connectionString.find(L';'));
        connectionString.remove_prefix(std::min(setting.size() + 1, connectionString.size()));
        const auto equals = setting.find(L'=');
        if (equals != std::wstring_view::npos && equalIgnoringCase(setting.substr(0, equals), key))
            return std::wstring(setting.substr(equals + 1));
    }
    return {};
}

}  // namespace

std::span<const MemberName> Connection::members() const {
    static constexpr std::array names = {MemberName{L"State", connectionMember::state},
                                         MemberName{L"Close", connectionMember::close},
                                         MemberName{L"Open", connectionMember::open},
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

void Connection::open(const std::wstring& connectionString) {
    if (database_) fail(AdoError::objectOpen);
    const auto provider = settingOf(connectionString, L"Provider");
    if (faults_.providerMissing || !equalIgnoringCase(provider, L"Microsoft.Jet.OLEDB.4.0"))
        fail(AdoError::providerNotFound);
    const auto path = settingOf(connectionString, L"Data Source");
    if (!fileExists(path)) fail(AdoError::unspecified, L"Datei '" + path + L"' nicht gefunden.");
    database_ = std::make_unique<Database>(path);
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
