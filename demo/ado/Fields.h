#pragma once

#include <memory>

#include "demo/ado/AdoObject.h"
#include "demo/ado/Recordset.h"

namespace demo::ado {

/// The collection of a recordset's fields.
class Fields final : public AdoObject {
  public:
    explicit Fields(std::shared_ptr<Recordset> recordset) : recordset_(std::move(recordset)) {}

    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override;
    std::vector<blattwart::ObjectPtr> allElements() override;

  protected:
    std::span<const MemberName> members() const override;

  private:
    std::shared_ptr<Recordset> recordset_;
};

/// One field; its value is that of the recordset's current row.
class Field final : public AdoObject {
  public:
    Field(std::shared_ptr<Recordset> recordset, std::size_t index)
        : recordset_(std::move(recordset)), index_(index) {}

    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override;

  protected:
    std::span<const MemberName> members() const override;

  private:
    std::shared_ptr<Recordset> recordset_;
    std::size_t index_;
};

}  // namespace demo::ado
