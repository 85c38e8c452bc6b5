#pragma once

#include "platform/Locale.h"

namespace blattwart::test {

/// A German user, the same on every machine: comma, point between thousands, code page 1252.
class GermanLocale : public Locale {
  public:
    std::wstring upperCase(std::wstring_view text) const override;
    std::wstring decimalSeparator() const override { return L","; }
    std::wstring thousandsSeparator() const override { return L"."; }
    int compareNaturally(std::wstring_view a, std::wstring_view b) const override;
    std::string toAnsi(std::wstring_view text) const override;
    std::wstring fromAnsi(std::string_view bytes) const override;
};

}  // namespace blattwart::test
