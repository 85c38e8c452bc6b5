#include "platform/Conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

[[noreturn]] void throwTypeMismatch() {
    throw RuntimeError(errorNumber::typeMismatch, L"Typen unverträglich");
}

[[noreturn]] void throwOverflow() {
    throw RuntimeError(errorNumber::overflow, L"Überlauf");
}

template <class Integer>
Integer roundedTo(double number) {
    // The current rounding mode is never changed, so this rounds halves to even.
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throwOverflow();
    }
    return static_cast<Integer>(rounded);
}

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

bool isBlank(wchar_t character) {
    return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
}

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// The number at the start of a text.
struct Scan {
    std::string number;  ///< as std::from_chars wants it; empty when the text does not start with a number
    std::size_t length = 0;  ///< characters of the text that it takes
};

/// Appends the digits from the position on and moves it behind them; their count.
std::size_t takeDigits(std::wstring_view text, std::size_t& position, std::string& number) {
    const std::size_t start = position;
    while (position < text.size() && isDigit(text[position])) {
        number.push_back(static_cast<char>(text[position++]));
    }
    return position - start;
}

void takeExponent(std::wstring_view text, Scan& scan) {
    if (scan.length == text.size() || (text[scan.length] != L'e' && text[scan.length] != L'E')) return;
    std::size_t position = scan.length + 1;
    std::string exponent = "e";
    if (position < text.size() && (text[position] == L'-' || text[position] == L'+')) {
        exponent.push_back(static_cast<char>(text[position++]));
    }
    if (takeDigits(text, position, exponent) == 0) return;
    scan.number += exponent;
    scan.length = position;
}

Scan scanNumber(std::wstring_view text, std::wstring_view points) {
    Scan scan;
    std::size_t position = 0;
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        if (text.front() == L'-') scan.number = "-";
        position = 1;
    }
    std::size_t digits = takeDigits(text, position, scan.number);
    if (position < text.size() && points.find(text[position]) != std::wstring_view::npos) {
        if (digits == 0) scan.number.push_back('0');
        scan.number.push_back('.');
        digits += takeDigits(text, ++position, scan.number);
    }
    if (digits == 0) return {};
    scan.length = position;
    takeExponent(text, scan);
    return scan;
}

double parsed(const std::string& number) {
    double result = 0;
    const auto status = std::from_chars(number.data(), number.data() + number.size(), result);
    if (status.ec != std::errc::result_out_of_range) return result;
    const bool negative = number.front() == '-';
    const bool tiny = number.find("e-") != std::string::npos || number[negative ? 1 : 0] == '0';
    if (tiny) return 0;
    return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

/// Appends the groups of an integer part without their separators.
void appendGroups(std::wstring& digits, std::wstring_view integerPart, std::wstring_view separator) {
    bool first = true;
    for (;;) {
        const std::size_t end = separator.empty() ? std::wstring_view::npos : integerPart.find(separator);
        const std::wstring_view group = integerPart.substr(0, end);
        const bool last = end == std::wstring_view::npos;
        if (!std::ranges::all_of(group, isDigit)) throwTypeMismatch();
        if (!first && group.size() != 3) throwTypeMismatch();
        if (first && !last && (group.empty() || group.size() > 3)) throwTypeMismatch();
        digits += group;
        if (last) return;
        integerPart.remove_prefix(end + separator.size());
        first = false;
    }
}

std::wstring widened(std::string_view text) {
    return std::wstring(text.begin(), text.end());
}

/// The shortest text that reads back the same, without exponent, with a point.
template <class Number>
std::wstring shortestText(Number number) {
    std::array<char, 400> buffer;
    char* const end = buffer.data() + buffer.size();
    if constexpr (std::is_floating_point_v<Number>) {
        return widened(
            {buffer.data(), std::to_chars(buffer.data(), end, number, std::chars_format::fixed).ptr});
    } else {
        return widened({buffer.data(), std::to_chars(buffer.data(), end, number).ptr});
    }
}

template <class Number>
std::wstring localText(Number number, const Locale& locale) {
    std::wstring text = shortestText(number);
    const std::size_t point = text.find(L'.');
    if (point != std::wstring::npos) text.replace(point, 1, locale.decimalSeparator());
    return text;
}

/// A number as its first 15 digits give it: more are noise of the binary representation.
double roundedToShownDigits(double number) {
    std::array<char, 32> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::scientific, 14)
            .ptr;
    double result = number;
    std::from_chars(buffer.data(), end, result);
    return result;
}

}  // namespace

std::int16_t toInt16(double number) {
    return roundedTo<std::int16_t>(number);
}

std::int32_t toInt32(double number) {
    return roundedTo<std::int32_t>(number);
}

float toFloat(double number) {
    if (!(std::abs(number) <= std::numeric_limits<float>::max())) throwOverflow();
    return static_cast<float>(number);
}

double numericPrefix(std::wstring_view text) {
    std::wstring withoutBlanks(text);
    std::erase_if(withoutBlanks, isBlank);
    const Scan scan = scanNumber(withoutBlanks, L".");
    return scan.number.empty() ? 0 : parsed(scan.number);
}

double plainNumber(std::wstring_view text) {
    const std::wstring_view whole = trimmed(text);
    const Scan scan = scanNumber(whole, L".,");
    if (scan.number.empty() || scan.length != whole.size()) throwTypeMismatch();
    const double number = parsed(scan.number);
    if (std::isinf(number)) throwOverflow();
    return number;
}

std::wstring plainText(float number) {
    return shortestText(number);
}

double userNumber(std::wstring_view text, const Locale& locale) {
    std::wstring_view rest = trimmed(text);
    std::wstring plain;
    if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+')) {
        plain = rest.front();
        rest.remove_prefix(1);
    }
    const std::wstring separator = locale.decimalSeparator();
    const std::size_t point = rest.find(separator);
    appendGroups(plain, rest.substr(0, point), locale.thousandsSeparator());
    if (point != std::wstring_view::npos) {
        const std::wstring_view fraction = rest.substr(point + separator.size());
        if (!std::ranges::all_of(fraction, isDigit)) throwTypeMismatch();
        plain.append(L".").append(fraction);
    }
    return plainNumber(plain);
}

std::wstring formatTwoDecimals(double number, const Locale& locale) {
    const double scaled = std::abs(number) * 100;
    if (!std::isfinite(scaled)) throwOverflow();
    const double hundredths = std::round(roundedToShownDigits(scaled));
    std::array<char, 320> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), hundredths, std::chars_format::fixed, 0)
            .ptr;
    std::wstring text = widened({buffer.data(), end});
    if (text.size() < 3) text.insert(0, 3 - text.size(), L'0');
    text.insert(text.size() - 2, locale.decimalSeparator());
    return number < 0 && hundredths != 0 ? L"-" + text : text;
}

std::int16_t toInt16(const Value& value, const Locale& locale) {
    return toInt16(toDouble(value, locale));
}

std::int32_t toInt32(const Value& value, const Locale& locale) {
    return toInt32(toDouble(value, locale));
}

double toDouble(const Value& value, const Locale& locale) {
    return std::visit(
        [&locale](const auto& content) -> double {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, bool>) {
                return content ? -1 : 0;
            } else if constexpr (std::is_arithmetic_v<Content>) {
                return static_cast<double>(content);
            } else if constexpr (std::is_same_v<Content, Currency>) {
                return static_cast<double>(content.tenThousandths) / 10000;
            } else if constexpr (std::is_same_v<Content, Date>) {
                return content.days;
            } else if constexpr (std::is_same_v<Content, std::wstring>) {
                return userNumber(content, locale);
            } else {
                throwTypeMismatch();
            }
        },
        value.storage());
}

bool toBool(const Value& value) {
    return std::visit(
        [](const auto& content) -> bool {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(content)>>) {
                return content != 0;
            } else {
                throwTypeMismatch();
            }
        },
        value.storage());
}

std::wstring toText(const Value& value, const Locale& locale) {
    return std::visit(
        [&locale](const auto& content) -> std::wstring {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::wstring>) {
                return content;
            } else if constexpr (std::is_same_v<Content, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<Content, Currency>) {
                return localText(static_cast<double>(content.tenThousandths) / 10000, locale);
            } else if constexpr (std::is_arithmetic_v<Content> && !std::is_same_v<Content, bool>) {
                return localText(content, locale);
            } else {
                throwTypeMismatch();
            }
        },
        value.storage());
}

ObjectPtr toObject(const Value& value) {
    const auto* object = value.as<ObjectPtr>();
    if (!object || !*object)
        throw RuntimeError(errorNumber::objectNotSet, L"Objektvariable nicht festgelegt");
    return *object;
}

}  // namespace blattwart
