#include "demo/dxf/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <codecvt>
#include <cstdint>
#include <locale>
#include <optional>

namespace demo {

namespace {

// Deprecated, but the standard library has no other way.
using Wide =
    std::conditional_t<sizeof(wchar_t) == 2, std::codecvt_utf8_utf16<wchar_t>, std::codecvt_utf8<wchar_t>>;
using Converter = std::wstring_convert<Wide>;

constexpr std::array<wchar_t, 32> upperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The character of a \U+XXXX at the front of the text; halves of surrogates and control characters have
/// none.
std::optional<wchar_t> escapeAt(std::string_view text) {
    if (!text.starts_with("\\U+") || text.size() < 7) return std::nullopt;
    std::uint16_t unit = 0;
    const auto [end, error] = std::from_chars(text.data() + 3, text.data() + 7, unit, 16);
    const bool complete = error == std::errc() && end == text.data() + 7;
    if (!complete || unit < 0x20 || (unit >= 0xD800 && unit < 0xE000)) return std::nullopt;
    return static_cast<wchar_t>(unit);
}

}  // namespace

std::wstring decodeText(std::string_view utf8) {
    if (isAscii(utf8)) return std::wstring(utf8.begin(), utf8.end());
    return Converter("?", L"\uFFFD").from_bytes(utf8.data(), utf8.data() + utf8.size());
}

std::string encodeText(std::wstring_view text) {
    return Converter("?", L"\uFFFD").to_bytes(text.data(), text.data() + text.size());
}

std::string fromCodePage(std::string_view bytes) {
    if (isAscii(bytes) && bytes.find("\\U+") == std::string_view::npos) return std::string(bytes);
    std::wstring text;
    while (!bytes.empty()) {
        const auto escape = escapeAt(bytes);
        const auto byte = static_cast<unsigned char>(bytes.front());
        text += escape ? *escape : byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : wchar_t{byte};
        bytes.remove_prefix(escape ? 7 : 1);
    }
    return encodeText(text);
}

std::wstring folded(std::wstring_view name) {
    std::wstring result(name);
    for (wchar_t& c : result) {
        const bool latin = (c >= L'a' && c <= L'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
        const bool greekOrCyrillic = (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F);
        if (latin || greekOrCyrillic) c = static_cast<wchar_t>(c - 0x20);
    }
    return result;
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && folded(a) == folded(b);
}

}  // namespace demo
