#include "demo/host/XDataArrays.h"

#include <optional>

#include "demo/host/HostError.h"

namespace demo {

using blattwart::DoubleArray;
using blattwart::Value;

namespace {

Value valueOf(const XDataItem& item) {
    if (const auto* text = std::get_if<std::wstring>(&item.value)) return *text;
    if (const auto* real = std::get_if<double>(&item.value)) return *real;
    if (const auto* point = std::get_if<Point>(&item.value)) {
        return DoubleArray(point->begin(), point->end());
    }
    const std::int32_t whole = std::get<std::int32_t>(item.value);
    if (item.code == 1070) return static_cast<std::int16_t>(whole);
    return whole;
}

std::optional<std::int32_t> wholeOf(std::int16_t code, const Value& value) {
    if (const auto* number = value.as<std::int16_t>()) return *number;
    const auto* number = value.as<std::int32_t>();
    if (!number || (code == 1070 && *number != static_cast<std::int16_t>(*number))) return std::nullopt;
    return *number;
}

std::optional<XDataItem::Value> itemValue(std::int16_t code, const Value& value) {
    switch (xdataKind(code)) {
        case XDataKind::text:
            if (const auto* text = value.as<std::wstring>()) return *text;
            break;
        case XDataKind::number:
            if (const auto* real = value.as<double>()) return *real;
            break;
        case XDataKind::whole:
            if (const auto whole = wholeOf(code, value)) return *whole;
            break;
        case XDataKind::point:
            if (const auto* point = value.as<DoubleArray>(); point && point->size() == 3) {
                return Point{(*point)[0], (*point)[1], (*point)[2]};
            }
            break;
        case XDataKind::unknown:
            break;
    }
    return std::nullopt;
}

}  // namespace

Value xdataTypes(const XData& data) {
    blattwart::ShortArray types;
    for (const XDataItem& item : data) types.push_back(item.code);
    return types;
}

Value xdataValues(const XData& data) {
    blattwart::ValueArray values;
    for (const XDataItem& item : data) values.push_back(valueOf(item));
    return values;
}

XData xdataOf(const blattwart::ShortArray& types, const blattwart::ValueArray& values, Language language) {
    const auto refuse = [&] { throw hostError::make(hostError::invalidInput, language); };
    if (types.empty() || types.size() != values.size() || types.front() != 1001) refuse();
    XData data;
    for (std::size_t i = 0; i < types.size(); ++i) {
        auto value = itemValue(types[i], values[i]);
        if (!value) refuse();
        data.push_back({types[i], std::move(*value)});
    }
    return data;
}

}  // namespace demo
