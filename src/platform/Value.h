#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace blattwart {

class AutomationObject;
class Value;

/// A reference to an automation object; empty when there is none.
using ObjectPtr = std::shared_ptr<AutomationObject>;

/// A field without a value in a database row (not the same as an empty Value).
struct Null {
    friend bool operator==(Null, Null) { return true; }
};

/// Money as databases return it: ten-thousandths of a unit.
struct Currency {
    std::int64_t tenThousandths = 0;
    friend bool operator==(Currency, Currency) = default;
};

/// A point in time as databases return it: days since 1899-12-30, the time of day as fraction.
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) = default;
};

using ShortArray = std::vector<std::int16_t>;
using DoubleArray = std::vector<double>;
using ValueArray = std::vector<Value>;

template <class T, class Variant>
inline constexpr bool isAlternative = false;
template <class T, class... Alternatives>
inline constexpr bool isAlternative<T, std::variant<Alternatives...>> = (std::is_same_v<T, Alternatives> ||
                                                                         ...);

/// One value that goes to or comes from an automation object. A default-constructed Value is empty.
class Value {
  public:
    using Storage = std::variant<std::monostate, Null, bool, std::uint8_t, std::int16_t, std::int32_t,
                                 std::int64_t, float, double, Currency, Date, std::wstring, ObjectPtr,
                                 ShortArray, DoubleArray, ValueArray>;

    Value() = default;
    template <class T>
    requires(isAlternative<std::decay_t<T>, Storage>) Value(T&& content)
        : storage_(std::forward<T>(content)) {}
    Value(const wchar_t* text) : storage_(std::wstring(text)) {}
    Value(std::wstring_view text) : storage_(std::wstring(text)) {}

    bool isEmpty() const { return std::holds_alternative<std::monostate>(storage_); }
    bool isNull() const { return std::holds_alternative<Null>(storage_); }
    template <class T>
    bool is() const {
        return std::holds_alternative<T>(storage_);
    }
    /// The content if it is of this very type, else null; no conversion.
    template <class T>
    const T* as() const {
        return std::get_if<T>(&storage_);
    }
    const Storage& storage() const { return storage_; }

    friend bool operator==(const Value& a, const Value& b) { return a.storage_ == b.storage_; }

  private:
    Storage storage_;
};

}  // namespace blattwart
