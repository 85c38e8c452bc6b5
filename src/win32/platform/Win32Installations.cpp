#include "win32/platform/Win32Installations.h"

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <array>

#include "win32/base/Handles.h"

namespace blattwart {

namespace {

constexpr std::array<REGSAM, 2> views{KEY_WOW64_64KEY, KEY_WOW64_32KEY};

/// Null where there is none.
Key openKey(HKEY parent, const std::wstring& path, REGSAM view) {
    HKEY opened = nullptr;
    RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | view, &opened);
    return Key(opened);
}

std::vector<std::wstring> subKeys(HKEY key) {
    std::vector<std::wstring> names;
    std::array<wchar_t, 256> name{};
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return names;
        names.emplace_back(name.data(), length);
    }
}

/// With the variables in it replaced; "" where there is none.
std::wstring textValue(HKEY key, const wchar_t* name) {
    std::array<wchar_t, std::size_t{2} * MAX_PATH> text{};
    auto bytes = static_cast<DWORD>(sizeof text);
    const LSTATUS result = RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    return result == ERROR_SUCCESS ? text.data() : std::wstring();
}

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// Whether there is the program of a command line: what stands in quotes, else, as Windows looks for it, what
/// stands before one of the blanks.
bool hasProgram(const std::wstring& command) {
    if (command.starts_with(L'"')) return isFile(command.substr(1, command.find(L'"', 1) - 1));
    for (std::size_t end = 0; end != std::wstring::npos;) {
        end = command.find(L' ', end + 1);
        const std::wstring program = command.substr(0, end);
        if (isFile(program) || isFile(program + L".exe")) return true;
    }
    return false;
}

}  // namespace

std::vector<InstalledProduct> Win32Installations::products() {
    std::vector<InstalledProduct> products;
    for (const REGSAM view : views) {
        const Key all = openKey(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Autodesk\\AutoCAD", view);
        if (!all) continue;
        for (const std::wstring& release : subKeys(all.get())) {
            const Key ofRelease = openKey(all.get(), release, view);
            if (!ofRelease) continue;
            for (const std::wstring& name : subKeys(ofRelease.get()))
                if (const Key product = openKey(ofRelease.get(), name, view); product)
                    products.push_back({release, name, textValue(product.get(), L"ProductName")});
        }
    }
    return products;
}

std::wstring Win32Installations::classOf(const std::wstring& programName) {
    CLSID id{};
    if (FAILED(CLSIDFromProgID(programName.c_str(), &id))) return {};
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

bool Win32Installations::hasServer(const std::wstring& classId) {
    return std::ranges::any_of(views, [&](REGSAM view) {
        const Key key = openKey(HKEY_CLASSES_ROOT, L"CLSID\\" + classId + L"\\LocalServer32", view);
        return key && hasProgram(textValue(key.get(), nullptr));
    });
}

}  // namespace blattwart
