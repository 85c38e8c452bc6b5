#include "demo/dxf/Group.h"

#include <algorithm>
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
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    if (value.starts_with('+')) value.remove_prefix(1);
    Number number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    return error == std::errc() ? number : 0;
}

std::int16_t axisCode(std::int16_t code, int axis) {
    return static_cast<std::int16_t>(code + 10 * axis);
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
    return parseHandle(std::string_view(value)).value_or(0);
}

const Group* findGroup(const Groups& groups, std::int16_t code) {
    const auto found = std::ranges::find(groups, code, &Group::code);
    return found == groups.end() ? nullptr : &*found;
}

Group textGroup(std::int16_t code, std::wstring_view text) {
    if (text.find(L'\n') != std::wstring_view::npos)
        throw RuntimeError(errorNumber::invalidCall, L"Der Text hat mehrere Zeilen.");
    return {code, encodeText(text)};
}

Group numberGroup(std::int16_t code, double number) {
    if (!std::isfinite(number))
        throw RuntimeError(errorNumber::invalidCall, L"Die Zahl ist nicht darstellbar.");
    std::array<char, 32> text;
    char* end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {code, std::string(text.data(), end)};
}

Group integerGroup(std::int16_t code, std::int64_t number) {
    return {code, std::to_string(number)};
}

Group handleGroup(std::int16_t code, Handle handle) {
    return {code, encodeText(handleText(handle))};
}

std::wstring handleText(Handle handle) {
    std::wstring digits;
    do digits.insert(digits.begin(), L"0123456789ABCDEF"[handle % 16]);
    while ((handle /= 16) != 0);
    return digits;
}

std::optional<Handle> parseHandle(std::string_view text) {
    Handle handle = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, handle, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return handle;
}

std::optional<Handle> parseHandle(std::wstring_view text) {
    return parseHandle(std::string_view(encodeText(text)));
}

XDataKind xdataKind(std::int16_t code) {
    if (code >= 1000 && code <= 1005) return XDataKind::text;
    if (code >= 1010 && code <= 1013) return XDataKind::point;
    if (code >= 1040 && code <= 1042) return XDataKind::number;
    return code == 1070 || code == 1071 ? XDataKind::whole : XDataKind::unknown;
}

XDataItem xdataItem(const Groups& groups, std::size_t& i) {
    const Group& group = groups[i++];
    switch (xdataKind(group.code)) {
        case XDataKind::number:
            return {group.code, group.number()};
        case XDataKind::whole:
            return {group.code, static_cast<std::int32_t>(group.integer())};
        case XDataKind::point: {
            Point point = {group.number(), 0, 0};
            for (int axis = 1; axis < 3 && i < groups.size() && groups[i].code == axisCode(group.code, axis);
                 ++axis)
                point[static_cast<std::size_t>(axis)] = groups[i++].number();
            return {group.code, point};
        }
        default:
            return {group.code, group.text()};
    }
}

Groups xdataGroups(const XDataItem& item) {
    if (const auto* text = std::get_if<std::wstring>(&item.value)) return {textGroup(item.code, *text)};
    if (const auto* number = std::get_if<double>(&item.value)) return {numberGroup(item.code, *number)};
    if (const auto* whole = std::get_if<std::int32_t>(&item.value)) return {integerGroup(item.code, *whole)};
    const auto& point = std::get<Point>(item.value);
    return {numberGroup(item.code, point[0]), numberGroup(axisCode(item.code, 1), point[1]),
            numberGroup(axisCode(item.code, 2), point[2])};
}

}  // namespace demo
