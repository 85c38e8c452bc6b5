#include "demo/ado/Fields.h"

#include <array>

#include "demo/ado/AdoErrors.h"

namespace demo::ado {

using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

constexpr std::int32_t idCount = 1;
constexpr std::int32_t idName = 1100;

}  // namespace

std::span<const MemberName> Fields::members() const {
    static constexpr std::array names = {MemberName{L"Item", defaultMember}, MemberName{L"Count", idCount},
                                         MemberName{L"_NewEnum", newEnumMember}};
    return names;
}

Value Fields::invoke(std::int32_t id, Access access, Arguments arguments) {
    requireRead(access);
    if (id == idCount) return static_cast<std::int32_t>(recordset_->fieldCount());
    if (id != defaultMember) fail(AdoError::memberNotFound);
    return ObjectPtr(std::make_shared<Field>(recordset_, recordset_->fieldIndex(argumentAt(arguments, 0))));
}

std::vector<ObjectPtr> Fields::allElements() {
    std::vector<ObjectPtr> fields;
    for (std::size_t i = 0; i < recordset_->fieldCount(); ++i)
        fields.push_back(std::make_shared<Field>(recordset_, i));
    return fields;
}

std::span<const MemberName> Field::members() const {
    static constexpr std::array names = {MemberName{L"Value", defaultMember}, MemberName{L"Name", idName}};
    return names;
}

Value Field::invoke(std::int32_t id, Access access, Arguments arguments) {
    if (id == defaultMember && access == Access::put) {
        recordset_->setFieldValue(index_, argumentAt(arguments, 0));
        return {};
    }
    requireRead(access);
    if (id == defaultMember) return recordset_->fieldValue(index_);
    if (id == idName) return recordset_->fieldName(index_);
    fail(AdoError::memberNotFound);
}

}  // namespace demo::ado
