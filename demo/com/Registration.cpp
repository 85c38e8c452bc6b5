#include "demo/com/Registration.h"

#include <objbase.h>

#include <array>

#include "win32/com/ComError.h"

namespace demo {

namespace {

const std::wstring classesKey = L"Software\\Classes\\";

void setDefault(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    HKEY opened = nullptr;
    blattwart::throwIfFailed(HRESULT_FROM_WIN32(
        static_cast<DWORD>(RegCreateKeyExW(HKEY_LOCAL_MACHINE, (classesKey + key).c_str(), 0, nullptr, 0,
                                           KEY_WRITE, nullptr, &opened, nullptr))));
    const LSTATUS status =
        RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size);
    RegCloseKey(opened);
    blattwart::throwIfFailed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

std::wstring textOf(const CLSID& id) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void registerNames(const ServerClass& server) {
    setDefault(server.progId + L"\\CLSID", textOf(server.id));
    setDefault(L"CLSID\\" + textOf(server.id) + L"\\ProgID", server.progId);
}

}  // namespace

void registerProgram(const ServerClass& server, const std::wstring& command) {
    registerNames(server);
    setDefault(L"CLSID\\" + textOf(server.id) + L"\\LocalServer32", command);
}

void registerLibrary(const ServerClass& server, const std::wstring& file) {
    registerNames(server);
    const std::wstring key = L"CLSID\\" + textOf(server.id) + L"\\InprocServer32";
    setDefault(key, file);
    setDefault(key, L"Apartment", L"ThreadingModel");
}

std::wstring moduleFile(const void* addressInside) {
    HMODULE module = nullptr;
    if (addressInside) {
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            static_cast<const wchar_t*>(addressInside), &module);
    }
    std::array<wchar_t, 1024> file{};
    GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
    return file.data();
}

}  // namespace demo
