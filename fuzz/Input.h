#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/Value.h"
#include "support/GermanLocale.h"

namespace blattwart::fuzz {

/// The fuzz targets, a source each. A target ends the program when a rule does not hold.
void fuzzCommandText(const std::uint8_t* data, std::size_t size);
void fuzzDatabase(const std::uint8_t* data, std::size_t size);
void fuzzExtendedData(const std::uint8_t* data, std::size_t size);
void fuzzPreviewPicture(const std::uint8_t* data, std::size_t size);
void fuzzSettings(const std::uint8_t* data, std::size_t size);

inline void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", rule);
    std::abort();
}

/// Takes texts and values off the bytes that a target is given, a line each, so that a corpus can be read and
/// written by hand. Behind the end all lines are empty.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    bool atEnd() const { return rest_.empty(); }

    std::string_view line() {
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(line.size() < rest_.size() ? line.size() + 1 : line.size());
        return line;
    }
    /// A line in code page 1252.
    std::wstring text() { return test::GermanLocale().fromAnsi(line()); }

    /// A line as a value: a letter for its type, then its content ("d1.5", "tText").
    Value value() {
        const std::string_view text = line();
        if (text.empty()) return {};
        const std::string_view content = text.substr(1);
        switch (text.front()) {
            case 'n':
                return Null{};
            case 'b':
                return number<int>(content) != 0;
            case 'y':
                return number<std::uint8_t>(content);
            case 'h':
                return number<std::int16_t>(content);
            case 'i':
                return number<std::int32_t>(content);
            case 'l':
                return number<std::int64_t>(content);
            case 'f':
                return number<float>(content);
            case 'd':
                return number<double>(content);
            case 'c':
                return Currency{number<std::int64_t>(content)};
            case 'D':
                return Date{number<double>(content)};
            case 't':
                return test::GermanLocale().fromAnsi(content);
            case 'o':
                return ObjectPtr();
            case 'a':
                return DoubleArray{number<double>(content), 0, 0};
            default:
                return {};
        }
    }

    template <class Number>
    static Number number(std::string_view text) {
        Number number{};
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }

  private:
    std::string_view rest_;
};

}  // namespace blattwart::fuzz
