#include "support/GermanLocale.h"

#include <algorithm>
#include <array>
#include <compare>
#include <map>

namespace blattwart::test {

namespace {

/// Characters of the bytes 0x80 to 0x9F; bytes without a character stand for the control code of that number.
constexpr std::array<wchar_t, 32> codePage1252{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

wchar_t upper(wchar_t c) {
    if ((c >= L'a' && c <= L'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    if (c == 0xFF) return 0x178;
    if ((c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F)) return c - 0x20;
    if (c == 0x161 || c == 0x17E || c == 0x153) return c - 1;
    return c;
}

/// Upper case with the umlauts beside their vowels.
std::wstring folded(std::wstring_view text) {
    static const std::map<wchar_t, const wchar_t*> others{
        {L'Ä', L"A"}, {L'Ö', L"O"}, {L'Ü', L"U"}, {L'ß', L"SS"}};
    std::wstring result;
    for (const wchar_t character : text) {
        const wchar_t c = upper(character);
        const auto other = others.find(c);
        result += other == others.end() ? std::wstring(1, c) : other->second;
    }
    return result;
}

/// Takes the number at the start of a text off it; its digits without leading zeros.
std::wstring_view takeNumber(std::wstring_view& text) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    std::wstring_view number = text.substr(0, end - text.begin());
    text.remove_prefix(number.size());
    while (number.size() > 1 && number.front() == L'0') number.remove_prefix(1);
    return number;
}

std::strong_ordering compareNumbers(std::wstring_view a, std::wstring_view b) {
    const auto byLength = a.size() <=> b.size();
    return std::is_neq(byLength) ? byLength : a <=> b;
}

std::strong_ordering compareFolded(std::wstring_view a, std::wstring_view b) {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const auto order = compareNumbers(takeNumber(a), takeNumber(b));
            if (std::is_neq(order)) return order;
        } else {
            if (a.front() != b.front()) return a.front() <=> b.front();
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.size() <=> b.size();
}

}  // namespace

std::wstring GermanLocale::upperCase(std::wstring_view text) const {
    std::wstring result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

int GermanLocale::compareNaturally(std::wstring_view a, std::wstring_view b) const {
    auto order = compareFolded(folded(a), folded(b));
    if (std::is_eq(order)) order = upperCase(a) <=> upperCase(b);
    return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

std::string GermanLocale::toAnsi(std::wstring_view text) const {
    std::string bytes;
    for (const wchar_t character : text) {
        const auto special = std::ranges::find(codePage1252, character);
        if (special != codePage1252.end()) {
            bytes += static_cast<char>(0x80 + (special - codePage1252.begin()));
        } else if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
            bytes += static_cast<char>(character);
        } else {
            bytes += '?';
        }
    }
    return bytes;
}

std::wstring GermanLocale::fromAnsi(std::string_view bytes) const {
    std::wstring text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? codePage1252[code - 0x80] : static_cast<wchar_t>(code);
    }
    return text;
}

}  // namespace blattwart::test
