#pragma once

#include <memory>
#include <string>
#include <vector>

#include "demo/ado/Ado.h"
#include "demo/ado/AdoObject.h"
#include "demo/ado/Database.h"

namespace demo::ado {

class Recordset;

/// "ADODB.Connection": CursorLocation, Open, Execute, State, Close. User and password of Open are not looked
/// at.
class Connection final : public AdoObject {
  public:
    explicit Connection(const AdoFaults& faults) : faults_(faults) {}

    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override;

    /// Makes the database that a connection string names and opens it. Throws RuntimeError.
    void create(const std::wstring& connectionString);
    /// Runs a query for a recordset, which is closed together with the connection. Throws RuntimeError when
    /// the connection is closed.
    RowSet read(const std::wstring& source);
    void adopt(std::weak_ptr<Recordset> recordset);

  protected:
    std::span<const MemberName> members() const override;

  private:
    std::wstring fileIn(const std::wstring& connectionString) const;
    void open(const std::wstring& connectionString);
    void execute(const std::wstring& statement);
    void close();
    blattwart::Value cursorLocation(Access access, Arguments arguments);

    AdoFaults faults_;
    std::int32_t cursorLocation_ = 2;
    std::unique_ptr<Database> database_;
    std::vector<std::weak_ptr<Recordset>> recordsets_;
};

}  // namespace demo::ado
