#pragma once

#include <map>
#include <memory>
#include <string>

#include "demo/ado/AdoObject.h"
#include "demo/ado/RowSet.h"

namespace demo::ado {

class Connection;

/// "ADODB.Recordset" with a static cursor: Open reads all rows into memory. Clones share the rows and have a
/// position of their own. Update, and moving away from a changed row, store the changes in that memory only.
class Recordset final : public AdoObject, public std::enable_shared_from_this<Recordset> {
  public:
    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override;

    /// Closes the recordset without looking at changes under way.
    void drop();

    /// Number of fields, 0 while closed.
    std::size_t fieldCount() const;
    const std::wstring& fieldName(std::size_t field) const;
    /// Position of a field given by its name or its position. Throws RuntimeError when there is none.
    std::size_t fieldIndex(const blattwart::Value& nameOrPosition) const;
    /// Value of a field in the current row. Throws RuntimeError without one.
    blattwart::Value fieldValue(std::size_t field) const;
    void setFieldValue(std::size_t field, const blattwart::Value& value);

  protected:
    std::span<const MemberName> members() const override;

  private:
    bool atEnd() const;
    RowSet& openRows() const;
    void requireRow() const;
    void open(Arguments arguments);
    void attach(const std::shared_ptr<Connection>& connection, std::int32_t lockType);
    blattwart::ObjectPtr clone(std::int32_t lockType);
    void close();
    void moveTo(std::size_t row);
    void moveFirst();
    void moveNext();
    void update();
    blattwart::Value defaultValue(Access access, Arguments arguments);
    blattwart::Value collect(Access access, Arguments arguments);

    std::shared_ptr<RowSet> rows_;
    std::shared_ptr<Connection> connection_;
    bool readOnly_ = true;
    std::size_t position_ = 0;
    std::map<std::size_t, blattwart::Value> changes_;
};

}  // namespace demo::ado
