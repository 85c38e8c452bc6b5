#pragma once

#include <string>
#include <string_view>

namespace blattwart {

/// What depends on the user's language and number format.
class Locale {
  public:
    virtual ~Locale() = default;

    virtual std::wstring upperCase(std::wstring_view text) const = 0;
    virtual std::wstring decimalSeparator() const = 0;
    virtual std::wstring thousandsSeparator() const = 0;
    /// Order of two texts as a file list shows them: digits by their value, case ignored, umlauts beside
    /// their vowels. Negative, 0 or positive.
    virtual int compareNaturally(std::wstring_view a, std::wstring_view b) const = 0;
    /// To and from the system's ANSI code page.
    virtual std::string toAnsi(std::wstring_view text) const = 0;
    virtual std::wstring fromAnsi(std::string_view bytes) const = 0;

    bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) const {
        return upperCase(a) == upperCase(b);
    }
};

}  // namespace blattwart
