#include "demo/dxf/Group.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

namespace demo {

using blattwart::RuntimeError;
namespace errorNumber = blattwart::errorNumber;

namespace {

/// Reads the number at the beginning of a value; 0 when there is none or it is too large.
template <class Number>
Number parsed(std::string_view value) {
    const auto start = value.find_first_not_of(" \t");
    if (start == std::string_view::npos) return 0;
    value.remove_prefix(start);
    if (value.front() == '+') value.remove_prefix(1);
    Number number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    return error == std::errc() ? number : 0;
}

std::string digits(Handle handle) {
    std::array<char, 16> text;
    char* end = std::to_chars(text.data(), text.data() + text.size(), handle, 16).ptr;
    std::transform(text.data(), end, text.data(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return std::string(text.data(), end);
}

}  // namespace

std::wstring Group::text() const {
    return decodeText(value);
}

double Group::number() const {
    const auto result = parsed<double>(value);
    return std::isfinite(result) ? result : 0;
}

std::int64_t Group::integer() const {
    return parsed<std::int64_t>(value);
}

Handle Group::handle() const {
    const auto first = value.find_first_not_of(' ');
    if (first == std::string::npos) return 0;
    const auto last = value.find_last_not_of(' ');
    return parseHandle(std::string_view(value).substr(first, last - first + 1)).value_or(0);
}

Group textGroup(std::int16_t code, std::wstring_view text) {
    if (std::ranges::any_of(text, [](wchar_t c) { return c < 0x20; }))
        throw RuntimeError(errorNumber::invalidCall, L"Der Text enthält Steuerzeichen.");
    return {code, encodeText(text)};
}

Group numberGroup(std::int16_t code, double number) {
    if (!std::isfinite(number))
        throw RuntimeError(errorNumber::invalidCall, L"Die Zahl ist nicht darstellbar.");
    std::array<char, 32> text;
    char* end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    std::string value(text.data(), end);
    if (value.find_first_of(".e") == std::string::npos) value += ".0";
    return {code, value};
}

Group integerGroup(std::int16_t code, std::int64_t number) {
    return {code, std::to_string(number)};
}

Group handleGroup(std::int16_t code, Handle handle) {
    return {code, digits(handle)};
}

std::wstring handleText(Handle handle) {
    const std::string text = digits(handle);
    return std::wstring(text.begin(), text.end());
}

std::optional<Handle> parseHandle(std::string_view text) {
    Handle handle = 0;
    const char* end = text.data() + text.size();
    if (text.empty() || text.size() > 16) return std::nullopt;
    const auto [stop, error] = std::from_chars(text.data(), end, handle, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return handle;
}

std::optional<Handle> parseHandle(std::wstring_view text) {
    if (std::ranges::any_of(text, [](wchar_t c) { return c > 0x7F; })) return std::nullopt;
    std::string narrow;
    for (const wchar_t c : text) narrow += static_cast<char>(c);
    return parseHandle(narrow);
}

}  // namespace demo
