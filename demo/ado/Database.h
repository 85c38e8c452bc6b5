#pragma once

#include <memory>
#include <string>

#include "demo/ado/OdbcHandle.h"
#include "demo/ado/RowSet.h"

namespace demo::ado {

/// An open database behind an ODBC driver: SQLite's for what was made here, mdbtools' for genuine files,
/// which it reads only.
class Database {
  public:
    /// Opens a file that exists. Throws RuntimeError when it is not a database.
    explicit Database(const std::wstring& path);
    /// Makes a file that does not exist. Throws RuntimeError when it cannot be written.
    static std::unique_ptr<Database> create(const std::wstring& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// All rows of a query. Throws RuntimeError when the driver does not know the table or the statement.
    RowSet read(std::wstring_view statement);
    /// Runs a statement without a result. Throws RuntimeError when the driver refuses it.
    void execute(std::wstring_view statement);

  private:
    Database(const std::wstring& path, bool sqlite);

    OdbcHandle environment_;
    OdbcHandle connection_;
};

}  // namespace demo::ado
