#include "demo/dxf/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace demo {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
char32_t joined(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void appendUtf8(std::string& out, char32_t c) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

void appendWide(std::wstring& out, char32_t c) {
    if (sizeof(wchar_t) == 2 && c >= 0x10000) {
        out += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        out += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
        out += static_cast<wchar_t>(c);
    }
}

void appendEscape(std::string& out, char32_t unit) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "\\U+%04X", static_cast<unsigned>(unit));
    out += text.data();
}

/// Takes one character off the front of the text.
char32_t takeUtf8(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    bool valid = length > 0 && length <= text.size();
    char32_t c = length < 2 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (byte(i) & 0xC0) == 0x80;
        c = (c << 6) | (byte(i) & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    if (!valid || c < least[length] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
        text.remove_prefix(1);
        return replacement;
    }
    text.remove_prefix(length);
    return c;
}

/// The code unit of a \U+XXXX at the front of the text.
std::optional<char32_t> escapeAt(std::string_view text) {
    if (!text.starts_with("\\U+") || text.size() < 7) return std::nullopt;
    std::uint16_t unit = 0;
    const auto [end, error] = std::from_chars(text.data() + 3, text.data() + 7, unit, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    return unit;
}

char32_t takeCharacter(std::string_view& text) {
    const auto unit = escapeAt(text);
    if (!unit) return takeUtf8(text);
    text.remove_prefix(7);
    if (isHighSurrogate(*unit)) {
        const auto low = escapeAt(text);
        if (low && isLowSurrogate(*low)) {
            text.remove_prefix(7);
            return joined(*unit, *low);
        }
    }
    return *unit;
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::wstring decodeText(std::string_view utf8) {
    std::wstring text;
    text.reserve(utf8.size());
    while (!utf8.empty()) appendWide(text, takeCharacter(utf8));
    return text;
}

std::string encodeText(std::wstring_view text) {
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        const char32_t next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0;
        if (isHighSurrogate(unit) && isLowSurrogate(next)) {
            appendUtf8(utf8, joined(unit, next));
            ++i;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendEscape(utf8, unit);
        } else {
            appendUtf8(utf8, unit);
        }
    }
    return utf8;
}

std::string fromCodePage(std::string_view bytes) {
    if (isAscii(bytes)) return std::string(bytes);
    std::string utf8;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        appendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : byte);
    }
    return utf8;
}

std::string toCodePage(std::string_view utf8) {
    if (isAscii(utf8)) return std::string(utf8);
    std::string bytes;
    while (!utf8.empty()) {
        const char32_t c = takeUtf8(utf8);
        const auto found = std::ranges::find(upperControls, c);
        if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
            bytes += static_cast<char>(c);
        } else if (found != upperControls.end()) {
            bytes += static_cast<char>(0x80 + (found - upperControls.begin()));
        } else if (c < 0x10000) {
            appendEscape(bytes, c);
        } else {
            appendEscape(bytes, 0xD800 + ((c - 0x10000) >> 10));
            appendEscape(bytes, 0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return bytes;
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

std::filesystem::path toPath(const std::wstring& path) {
#ifdef _WIN32
    return path;
#else
    return encodeText(path);
#endif
}

}  // namespace demo
