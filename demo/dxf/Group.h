#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace demo {

/// Names one object of a drawing; written as hexadecimal digits, 0 for none.
using Handle = std::uint64_t;

/// x, y, z; in drawing units.
using Point = std::array<double, 3>;

/// One group of a drawing file: a code that tells the meaning, and a value. The value is kept as it stands in
/// the file (UTF-8, whatever the file's encoding), so that unknown groups are written back unchanged.
struct Group {
    std::int16_t code = 0;
    std::string value;

    /// The value as text; \U+XXXX is decoded.
    std::wstring text() const;
    /// The value as a finite number; 0 when it is none.
    double number() const;
    /// The value as a whole number; 0 when it is none.
    std::int64_t integer() const;
    /// The value as a handle; 0 when it is none.
    Handle handle() const;

    friend bool operator==(const Group&, const Group&) = default;
};

using Groups = std::vector<Group>;

/// Groups of a given value. Text with control characters and infinite numbers cannot be stored: throws
/// invalidCall.
Group textGroup(std::int16_t code, std::wstring_view text);
Group numberGroup(std::int16_t code, double number);
Group integerGroup(std::int16_t code, std::int64_t number);
Group handleGroup(std::int16_t code, Handle handle);

/// Hexadecimal digits without leading zeros, as files and the host write handles.
std::wstring handleText(Handle handle);
/// Reads 1 to 16 hexadecimal digits; none on anything else.
std::optional<Handle> parseHandle(std::string_view text);
std::optional<Handle> parseHandle(std::wstring_view text);

/// One element of an object's extended data. By code: 1000 to 1005 text (1001 application name, 1005 handle
/// as hexadecimal text), 1010 to 1013 point, 1040 to 1042 number, 1070 and 1071 whole number.
struct XDataItem {
    using Value = std::variant<std::wstring, double, std::int32_t, Point>;

    std::int16_t code = 0;
    Value value;

    friend bool operator==(const XDataItem&, const XDataItem&) = default;
};

using XData = std::vector<XDataItem>;

}  // namespace demo
