#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Locale.h"

namespace blattwart {

/// What a word in angle brackets stands for, such as "Name" for "<Name>".
struct PlanPlaceholder {
    std::wstring_view name;
    std::wstring value;
};

/// Replaces every placeholder, case ignored; values are not searched again. Nothing when a word in brackets
/// is not among them.
std::optional<std::wstring> expandPlaceholders(std::wstring_view pattern,
                                               std::span<const PlanPlaceholder> placeholders,
                                               const Locale& locale);
/// Whether the placeholder occurs in the pattern.
bool hasPlaceholder(std::wstring_view pattern, std::wstring_view name, const Locale& locale);
/// The number in decimal digits, filled with zeros in front to `digits`.
std::wstring paddedNumber(std::int64_t number, int digits);

}  // namespace blattwart
