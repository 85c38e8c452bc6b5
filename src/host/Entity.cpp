#include "host/Entity.h"

namespace blattwart::host {

namespace {

// Inherited members have one id in all classes of drawing objects.
constexpr std::wstring_view anyEntity = L"Entity";
constexpr std::wstring_view viewport = L"PViewport";
constexpr std::wstring_view blockReference = L"BlockReference";

}  // namespace

std::wstring Entity::ObjectName() const {
    return getText({anyEntity, L"ObjectName"});
}

XData Entity::GetXData(const std::wstring& applicationName) const {
    Value types;
    Value values;
    object().call({anyEntity, L"GetXData"}, {Value(applicationName), Argument(&types), Argument(&values)});
    XData data;
    if (const auto* array = types.as<ShortArray>()) data.types = *array;
    if (const auto* array = values.as<ValueArray>()) data.values = *array;
    return data;
}

void Entity::SetXData(const XData& data) const {
    object().call({anyEntity, L"SetXData"}, {Value(data.types), Value(data.values)});
}

double Entity::viewportCustomScale() const {
    return getDouble({viewport, L"CustomScale"});
}

std::wstring Entity::blockEffectiveName() const {
    std::wstring name;
    if (ignoringErrors([&] { name = getText({blockReference, L"EffectiveName"}); })) return name;
    return getText({blockReference, L"Name"});
}

}  // namespace blattwart::host
