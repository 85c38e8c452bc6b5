#include "planlist/PlanFilter.h"

#include <algorithm>
#include <sstream>

namespace blattwart {

namespace {

std::wstring folded(std::wstring_view text, const Locale& locale) {
    std::wstring result;
    for (const wchar_t c : locale.upperCase(text)) {
        if (c == L'ß' || c == L'ẞ') {
            result += L"SS";
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace

PlanFilter::PlanFilter(std::wstring_view text, const Locale& locale) : locale_(locale) {
    std::wistringstream words(folded(text, locale));
    for (std::wstring word; words >> word;) words_.push_back(std::move(word));
}

bool PlanFilter::accepts(std::span<const std::wstring> cells) const {
    if (words_.empty()) return true;
    std::wstring row;
    // A line end is in no word, so that none is found across two cells.
    for (const std::wstring& cell : cells) row.append(cell).push_back(L'\n');
    row = folded(row, locale_);
    return std::ranges::all_of(
        words_, [&](const std::wstring& word) { return row.find(word) != std::wstring::npos; });
}

}  // namespace blattwart
