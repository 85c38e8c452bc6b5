#include "demo/ado/Catalog.h"

#include <array>

#include "demo/ado/AdoErrors.h"

namespace demo::ado {

using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

namespace catalogMember {
enum : std::int32_t { activeConnection = 1, create = 6 };
}  // namespace catalogMember

}  // namespace

std::span<const MemberName> Catalog::members() const {
    static constexpr std::array names = {MemberName{L"ActiveConnection", catalogMember::activeConnection},
                                         MemberName{L"Create", catalogMember::create}};
    return names;
}

Value Catalog::invoke(std::int32_t id, Access access, Arguments arguments) {
    requireRead(access);
    if (id == catalogMember::create) {
        const auto made = std::make_shared<Connection>(faults_);
        made->create(textAt(arguments, 0));
        connection_ = made;
    } else if (id != catalogMember::activeConnection) {
        fail(AdoError::memberNotFound);
    }
    return connection_ ? Value(ObjectPtr(connection_)) : Value();
}

}  // namespace demo::ado
