#include "demo/host/HostPart.h"

#include <cmath>

#include "demo/host/HostError.h"
#include "demo/host/Members.h"

namespace demo {

using blattwart::Value;

namespace {

/// Whole numbers convert into each other, as automation arguments do; texts do not.
std::optional<double> anyNumber(const Value& value) {
    return std::visit(
        [](const auto& content) -> std::optional<double> {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(content)>>) {
                return static_cast<double>(content);
            } else {
                return std::nullopt;
            }
        },
        value.storage());
}

}  // namespace

std::wstring memberKey(std::wstring_view name) {
    std::wstring key(name);
    for (wchar_t& letter : key) {
        if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter - L'A' + L'a');
    }
    return key;
}

std::vector<blattwart::ObjectPtr> HostPart::allElements() {
    throw failure(hostError::memberNotFound);
}

void HostPart::checkReachable() const {
    if (host_->ended()) throw failure(blattwart::hresult::serverUnavailable);
    if (host_->dialog()) throw failure(blattwart::hresult::callRejected);
    if (document_ && document_->closed()) throw failure(blattwart::hresult::disconnected);
}

blattwart::RuntimeError HostPart::failure(std::int32_t number) const {
    return hostError::make(number, options().language);
}

std::wstring HostPart::textOf(const Value& value) const {
    if (const auto* text = value.as<std::wstring>()) return *text;
    throw failure(hostError::typeMismatch);
}

std::int64_t HostPart::numberOf(const Value& value) const {
    if (const auto* wide = value.as<std::int64_t>()) return *wide;
    return std::llround(doubleOf(value));
}

double HostPart::doubleOf(const Value& value) const {
    const auto number = anyNumber(value);
    if (!number || !std::isfinite(*number) || std::abs(*number) > 9e15) {
        throw failure(hostError::typeMismatch);
    }
    return *number;
}

bool HostPart::boolOf(const Value& value) const {
    return doubleOf(value) != 0;
}

Value HostPart::wideOrNarrow(std::int64_t number) const {
    if (options().wideIds) return number;
    return static_cast<std::int32_t>(number);
}

CollectionIndex collectionIndex(const Value& value, Language language) {
    if (const auto* name = value.as<std::wstring>()) return {.position = std::nullopt, .name = *name};
    const auto number = anyNumber(value);
    if (!number || std::abs(*number) > 1e9) throw hostError::make(hostError::typeMismatch, language);
    return {.position = std::llround(*number), .name = {}};
}

}  // namespace demo
