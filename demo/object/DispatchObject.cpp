#include "demo/object/DispatchObject.h"

namespace demo {

using blattwart::Argument;
using blattwart::Member;
using blattwart::RuntimeError;
using blattwart::Value;

std::int32_t DispatchObject::idOf(const Member& member) const {
    if (auto id = memberId(member.name)) return *id;
    throw RuntimeError(blattwart::hresult::unknownName, L"Unbekannter Name.");
}

Value DispatchObject::get(const Member& member) {
    return invoke(idOf(member), Access::get, {});
}

void DispatchObject::put(const Member& member, const Value& value) {
    const Argument argument(value);
    invoke(idOf(member), Access::put, std::span(&argument, 1));
}

Value DispatchObject::call(const Member& member, std::span<const Argument> arguments) {
    return invoke(idOf(member), Access::method, arguments);
}

}  // namespace demo
