#include "demo/ado/Database.h"

#include "demo/ado/DatabaseFile.h"
#include "demo/ado/Odbc.h"
#include "demo/ado/OdbcCells.h"

namespace demo::ado {

namespace {

SQLCHAR* bytesOf(std::string& text) {
    return reinterpret_cast<SQLCHAR*>(text.data());
}

}  // namespace

Database::Database(const std::wstring& path)
    : environment_(OdbcHandle::Kind::environment, nullptr),
      connection_(OdbcHandle::Kind::connection, environment_.get()) {
    auto text = "Driver=MDBTools;DBQ=" + driverPath(path) + ";";
    const auto result =
        SQLDriverConnect(connection_.get(), nullptr, bytesOf(text), static_cast<SQLSMALLINT>(text.size()),
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result))
        fail(AdoError::unspecified, L"Nicht erkennbares Datenbankformat '" + path + L"'.");
}

Database::~Database() {
    SQLDisconnect(connection_.get());
}

RowSet Database::read(std::wstring_view statement) {
    const OdbcHandle handle(OdbcHandle::Kind::statement, connection_.get());
    auto text = toUtf8(statement);
    check(SQLExecDirect(handle.get(), bytesOf(text), static_cast<SQLINTEGER>(text.size())),
          AdoError::tableNotFound);
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
