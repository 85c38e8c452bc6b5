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

/// One group of a drawing file: a code that tells the meaning, and a value as it stands in the file, in
/// UTF-8.
struct Group {
    std::int16_t code = 0;
    std::string value;

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

/// The first group of the code; null when there is none.
const Group* findGroup(const Groups& groups, std::int16_t code);

/// Groups of a given value. Text of more than one line and infinite numbers cannot be stored: throws
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

/// What kind of value an element of extended data has, by its code: 1000 to 1005 text (1001 application name,
/// 1005 handle), 1010 to 1013 point, 1040 to 1042 number, 1070 and 1071 whole number.
enum class XDataKind { text, point, number, whole, unknown };
XDataKind xdataKind(std::int16_t code);

/// One element of an object's extended data.
struct XDataItem {
    using Value = std::variant<std::wstring, double, std::int32_t, Point>;

    std::int16_t code = 0;
    Value value;

    friend bool operator==(const XDataItem&, const XDataItem&) = default;
};

using XData = std::vector<XDataItem>;

/// The element whose first group stands at `i`, which is moved behind its last one.
XDataItem xdataItem(const Groups& groups, std::size_t& i);
/// The groups of an element.
Groups xdataGroups(const XDataItem& item);

}  // namespace demo
