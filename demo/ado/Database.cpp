#include "demo/ado/Database.h"

#include "demo/ado/DatabaseFile.h"
#include "demo/ado/Odbc.h"
#include "demo/ado/OdbcCells.h"
#include "platform/RuntimeError.h"

namespace demo::ado {

namespace {

SQLCHAR* bytesOf(std::string& text) {
    return reinterpret_cast<SQLCHAR*>(text.data());
}

void run(const OdbcHandle& handle, std::wstring_view statement, AdoError error) {
    auto text = toUtf8(statement);
    const auto result = SQLExecDirect(handle.get(), bytesOf(text), static_cast<SQLINTEGER>(text.size()));
    if (result != SQL_NO_DATA) check(result, error);
}

}  // namespace

Database::Database(const std::wstring& path) : Database(path, isSqlite(path)) {}

Database::Database(const std::wstring& path, bool sqlite)
    : environment_(OdbcHandle::Kind::environment, nullptr),
      connection_(OdbcHandle::Kind::connection, environment_.get()) {
    // Nobody needs these files to outlive a power failure: without SyncPragma each statement waits for the
    // disk.
    auto text = (sqlite ? "Driver=SQLite3;SyncPragma=OFF;Database=" : "Driver=MDBTools;DBQ=") +
                driverPath(path) + ";";
    const auto result =
        SQLDriverConnect(connection_.get(), nullptr, bytesOf(text), static_cast<SQLSMALLINT>(text.size()),
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result))
        fail(AdoError::unspecified, L"Nicht erkennbares Datenbankformat '" + path + L"'.");
}

std::unique_ptr<Database> Database::create(const std::wstring& path) {
    const bool sqlite = true;
    std::unique_ptr<Database> made(new Database(path, sqlite));
    // Only something written makes it a file that is known again.
    const bool written = blattwart::ignoringErrors([&] { made->execute(L"PRAGMA user_version = 4"); });
    if (!written) fail(AdoError::unspecified, L"'" + path + L"' ist kein zulässiger Pfad.");
    return made;
}

Database::~Database() {
    SQLDisconnect(connection_.get());
}

void Database::execute(std::wstring_view statement) {
    const OdbcHandle handle(OdbcHandle::Kind::statement, connection_.get());
    run(handle, statement, AdoError::badStatement);
}

RowSet Database::read(std::wstring_view statement) {
    const OdbcHandle handle(OdbcHandle::Kind::statement, connection_.get());
    run(handle, statement, AdoError::tableNotFound);
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(handle.get(), &count));
    RowSet result;
    for (SQLSMALLINT i = 1; i <= count; ++i)
        result.fields.push_back(describeField(handle.get(), static_cast<std::uint16_t>(i)));
    SQLRETURN fetched = SQL_SUCCESS;
    while ((fetched = SQLFetch(handle.get())) != SQL_NO_DATA) {
        check(fetched);
        auto& row = result.rows.emplace_back();
        for (std::size_t i = 0; i < result.fields.size(); ++i)
            row.push_back(readCell(handle.get(), static_cast<std::uint16_t>(i + 1), result.fields[i].kind));
    }
    return result;
}

}  // namespace demo::ado
