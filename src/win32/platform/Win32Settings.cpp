#include "win32/platform/Win32Settings.h"

#include "win32/base/Handles.h"
#include "win32/base/SystemError.h"

namespace blattwart {

namespace {

constexpr const wchar_t* settingsPath = L"Software\\Blattwart\\Settings";

}  // namespace

std::wstring Win32Settings::get(std::wstring_view key, std::wstring_view defaultText) const {
    const std::wstring name(key);
    std::wstring text(256, L'\0');
    for (;;) {
        auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS result = RegGetValueW(HKEY_CURRENT_USER, settingsPath, name.c_str(), RRF_RT_REG_SZ,
                                            nullptr, text.data(), &bytes);
        if (result == ERROR_MORE_DATA) {
            text.resize(text.size() * 2);
            continue;
        }
        if (result != ERROR_SUCCESS) return std::wstring(defaultText);
        return text.substr(0, text.find(L'\0'));
    }
}

void Win32Settings::set(std::wstring_view key, std::wstring_view text) {
    HKEY opened = nullptr;
    LSTATUS result = RegCreateKeyExW(HKEY_CURRENT_USER, settingsPath, 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                     &opened, nullptr);
    if (result != ERROR_SUCCESS) throwSystemError(static_cast<DWORD>(result));
    const Key owner(opened);
    const std::wstring name(key);
    const std::wstring value(text);
    result = RegSetValueExW(opened, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    if (result != ERROR_SUCCESS) throwSystemError(static_cast<DWORD>(result));
}

std::wstring Win32Settings::location(std::wstring_view key) const {
    return L"HKEY_CURRENT_USER\\" + std::wstring(settingsPath) + L", Wert \"" + std::wstring(key) + L"\"";
}

}  // namespace blattwart
