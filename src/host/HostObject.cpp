#include "host/HostObject.h"

namespace blattwart::host {

void throwTypeMismatch() {
    throw RuntimeError(errorNumber::typeMismatch, L"AutoCAD hat einen Wert von unerwartetem Typ geliefert.");
}

std::wstring hostText(const Value& value) {
    if (const auto* text = value.as<std::wstring>()) return *text;
    if (value.isEmpty()) return {};
    throwTypeMismatch();
}

double hostNumber(const Value& value) {
    return std::visit(
        [](const auto& content) -> double {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_arithmetic_v<Content>) {
                return static_cast<double>(content);
            } else {
                throwTypeMismatch();
            }
        },
        value.storage());
}

AutomationObject& HostObject::object() const {
    if (!object_) throw RuntimeError(errorNumber::objectNotSet, L"Es besteht keine Verbindung zu AutoCAD.");
    return *object_;
}

std::wstring HostObject::getText(const Member& member) const {
    return hostText(object().get(member));
}

std::int32_t HostObject::getNumber(const Member& member) const {
    return toInt32(hostNumber(object().get(member)));
}

double HostObject::getDouble(const Member& member) const {
    return hostNumber(object().get(member));
}

}  // namespace blattwart::host
