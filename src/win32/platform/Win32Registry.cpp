#include "win32/platform/Win32Registry.h"

#include <windows.h>

#include <algorithm>

namespace blattwart {

namespace {

HKEY nativeKey(RegistryKey key) {
    return reinterpret_cast<HKEY>(key);
}

}  // namespace

std::int32_t Win32Registry::openKey(RegistryRoot root, const std::string& path, std::uint32_t access,
                                    RegistryKey& key) {
    HKEY opened = nullptr;
    const HKEY rootKey = root == RegistryRoot::localMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    const LSTATUS result = RegOpenKeyExA(rootKey, path.c_str(), 0, access, &opened);
    key = result == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(opened) : 0;
    return result;
}

std::int32_t Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                       std::span<char> buffer, std::uint32_t& size) {
    DWORD valueType = type;
    DWORD valueSize = std::min(size, static_cast<std::uint32_t>(buffer.size()));
    const LSTATUS result = RegQueryValueExA(nativeKey(key), name.c_str(), nullptr, &valueType,
                                            reinterpret_cast<BYTE*>(buffer.data()), &valueSize);
    type = valueType;
    size = valueSize;
    return result;
}

std::int32_t Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                     std::span<const char> data) {
    return RegSetValueExA(nativeKey(key), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                          static_cast<DWORD>(data.size()));
}

std::int32_t Win32Registry::closeKey(RegistryKey key) {
    return RegCloseKey(nativeKey(key));
}

std::wstring Win32Registry::expanded(const std::wstring& text) {
    std::wstring result(ExpandEnvironmentStringsW(text.c_str(), nullptr, 0), L'\0');
    const auto size = static_cast<DWORD>(result.size());
    const DWORD length = ExpandEnvironmentStringsW(text.c_str(), result.data(), size);
    result.resize(length > 0 && length <= size ? length - 1 : 0);
    return result;
}

}  // namespace blattwart
