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

std::vector<blattwart::ObjectPtr> DispatchObject::enumerate(std::wstring_view, const GoOn& goOn) {
    // As many at once as another process gets with one message.
    constexpr std::size_t atOnce = 512;
    std::vector<blattwart::ObjectPtr> elements = allElements();
    for (std::size_t taken = atOnce; taken < elements.size(); taken += atOnce)
        if (!goOn()) elements.resize(taken);
    return elements;
}

}  // namespace demo
