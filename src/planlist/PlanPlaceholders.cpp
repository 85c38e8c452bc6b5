#include "planlist/PlanPlaceholders.h"

#include <algorithm>
#include <functional>

namespace blattwart {

namespace {

/// Goes through a pattern: plain text and words in angle brackets in turn. A bracket that is not closed is
/// plain text.
void forEachPart(std::wstring_view pattern, const std::function<void(std::wstring_view, bool)>& part) {
    while (!pattern.empty()) {
        const std::size_t open = pattern.find(L'<');
        const std::size_t close = open == std::wstring_view::npos ? open : pattern.find(L'>', open);
        if (close == std::wstring_view::npos) {
            part(pattern, false);
            return;
        }
        part(pattern.substr(0, open), false);
        part(pattern.substr(open + 1, close - open - 1), true);
        pattern.remove_prefix(close + 1);
    }
}

}  // namespace

std::optional<std::wstring> expandPlaceholders(std::wstring_view pattern,
                                               std::span<const PlanPlaceholder> placeholders,
                                               const Locale& locale) {
    std::wstring text;
    bool known = true;
    forEachPart(pattern, [&](std::wstring_view part, bool bracketed) {
        if (!bracketed) {
            text += part;
            return;
        }
        const auto found = std::ranges::find_if(placeholders, [&](const PlanPlaceholder& placeholder) {
            return locale.equalIgnoringCase(placeholder.name, part);
        });
        known = known && found != placeholders.end();
        if (known) text += found->value;
    });
    return known ? std::optional(text) : std::nullopt;
}

bool hasPlaceholder(std::wstring_view pattern, std::wstring_view name, const Locale& locale) {
    bool occurs = false;
    forEachPart(pattern, [&](std::wstring_view part, bool bracketed) {
        occurs = occurs || (bracketed && locale.equalIgnoringCase(part, name));
    });
    return occurs;
}

std::wstring paddedNumber(std::int64_t number, int digits) {
    const std::wstring text = std::to_wstring(number);
    const auto missing = std::max<std::ptrdiff_t>(0, digits - static_cast<std::ptrdiff_t>(text.size()));
    return std::wstring(static_cast<std::size_t>(missing), L'0') + text;
}

}  // namespace blattwart
