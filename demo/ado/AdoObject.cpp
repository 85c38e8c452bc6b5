#include "demo/ado/AdoObject.h"

#include <algorithm>
#include <cwctype>

#include "demo/ado/AdoErrors.h"

namespace demo::ado {

using blattwart::Value;

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) {
    const auto lower = [](wchar_t letter) { return std::towlower(static_cast<std::wint_t>(letter)); };
    return std::ranges::equal(a, b, {}, lower, lower);
}

Value argumentAt(Arguments arguments, std::size_t position) {
    return position < arguments.size() ? arguments[position].value() : Value();
}

std::int32_t numberAt(Arguments arguments, std::size_t position, std::int32_t preset) {
    const auto value = argumentAt(arguments, position);
    if (value.isEmpty()) return preset;
    if (const auto* number = value.as<std::int32_t>()) return *number;
    if (const auto* number = value.as<std::int16_t>()) return *number;
    fail(AdoError::invalidArgument);
}

std::wstring textAt(Arguments arguments, std::size_t position) {
    const auto value = argumentAt(arguments, position);
    if (const auto* text = value.as<std::wstring>()) return *text;
    fail(AdoError::invalidArgument);
}

std::optional<std::int32_t> AdoObject::memberId(std::wstring_view name) const {
    for (const auto& member : members())
        if (equalIgnoringCase(member.name, name)) return member.id;
    return std::nullopt;
}

std::vector<blattwart::ObjectPtr> AdoObject::allElements() {
    fail(AdoError::memberNotFound);
}

void requireRead(Access access) {
    if (access == Access::put) fail(AdoError::memberNotFound);
}

}  // namespace demo::ado
