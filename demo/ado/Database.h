#pragma once

#include <string>

#include "demo/ado/OdbcHandle.h"
#include "demo/ado/RowSet.h"

namespace demo::ado {

/// An open database, read through the ODBC driver.
class Database {
  public:
    /// Opens a file that exists. Throws RuntimeError when it is not a database.
    explicit Database(const std::wstring& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// All rows of a query. Throws RuntimeError when the driver does not know the table or the statement.
    RowSet read(std::wstring_view statement);

  private:
    OdbcHandle environment_;
    OdbcHandle connection_;
};

}  // namespace demo::ado
