#include "win32/platform/Win32Files.h"

#include "win32/base/Handles.h"
#include "win32/base/SystemError.h"

namespace blattwart {

std::wstring Win32Files::applicationFolder() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throwSystemError();
        if (length < path.size()) return path.substr(0, path.find_last_of(L'\\', length));
        path.resize(path.size() * 2);
    }
}

std::vector<std::wstring> Win32Files::list(const std::wstring& pattern) {
    constexpr DWORD notNormal = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW(pattern.c_str(), &found);
    if (first == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND) return names;
        throwSystemError();
    }
    const Search search(first);
    do {
        if ((found.dwFileAttributes & notNormal) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileW(first, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES) throwSystemError();
    return names;
}

bool Win32Files::exists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring Win32Files::shortPath(const std::wstring& path) {
    std::wstring shortened(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    const DWORD length =
        GetShortPathNameW(path.c_str(), shortened.data(), static_cast<DWORD>(shortened.size()));
    // Longer than before: the path has changed in between.
    if (length >= shortened.size()) return {};
    shortened.resize(length);
    // A volume without short names gives the long ones.
    return shortened.find(L' ') != std::wstring::npos ? std::wstring() : shortened;
}

void Win32Files::remove(const std::wstring& path) {
    if (!DeleteFileW(path.c_str())) throwSystemError();
}

}  // namespace blattwart
