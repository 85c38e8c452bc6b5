#pragma once

#include "platform/Locale.h"

namespace blattwart {

/// The language and number format of the account.
class Win32Locale : public Locale {
  public:
    Win32Locale();

    std::wstring upperCase(std::wstring_view text) const override;
    std::wstring decimalSeparator() const override;
    std::wstring thousandsSeparator() const override;
    int compareNaturally(std::wstring_view a, std::wstring_view b) const override;
    std::string toAnsi(std::wstring_view text) const override;
    std::wstring fromAnsi(std::string_view bytes) const override;

  private:
    bool systemOrdersDigits_;
};

}  // namespace blattwart
