#include "win32/platform/Win32Locale.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>

namespace blattwart {

namespace {

/// CSTR_LESS_THAN, CSTR_EQUAL, CSTR_GREATER_THAN; 0 when the system does not know the flags.
int compareDigitsAsNumbers(std::wstring_view a, std::wstring_view b) {
    constexpr DWORD flags = SORT_DIGITSASNUMBERS | LINGUISTIC_IGNORECASE;
    return CompareStringEx(LOCALE_NAME_USER_DEFAULT, flags, a.data(), static_cast<int>(a.size()), b.data(),
                           static_cast<int>(b.size()), nullptr, nullptr, 0);
}

std::wstring localeText(LCTYPE type) {
    std::array<wchar_t, 16> text{};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace

Win32Locale::Win32Locale() : systemOrdersDigits_(compareDigitsAsNumbers(L"2", L"10") == CSTR_LESS_THAN) {}

std::wstring Win32Locale::upperCase(std::wstring_view text) const {
    std::wstring upper(text);
    if (text.empty()) return upper;
    LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_UPPERCASE, text.data(), static_cast<int>(text.size()),
                  upper.data(), static_cast<int>(upper.size()), nullptr, nullptr, 0);
    return upper;
}

std::wstring Win32Locale::decimalSeparator() const {
    return localeText(LOCALE_SDECIMAL);
}

std::wstring Win32Locale::thousandsSeparator() const {
    return localeText(LOCALE_STHOUSAND);
}

int Win32Locale::compareNaturally(std::wstring_view a, std::wstring_view b) const {
    if (a.empty() || b.empty()) return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
    if (systemOrdersDigits_) return compareDigitsAsNumbers(a, b) - CSTR_EQUAL;
    return StrCmpLogicalW(std::wstring(a).c_str(), std::wstring(b).c_str());
}

std::string Win32Locale::toAnsi(std::wstring_view text) const {
    const auto length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

std::wstring Win32Locale::fromAnsi(std::string_view bytes) const {
    const auto length = static_cast<int>(bytes.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), static_cast<int>(text.size()));
    return text;
}

}  // namespace blattwart
