#include "win32/platform/Win32FileDialogs.h"

#include <windows.h>

#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "win32/platform/OwnWindow.h"

namespace blattwart {

namespace {

constexpr std::size_t longestPath = 32768;

}  // namespace

std::optional<std::wstring> Win32FileDialogs::open(const std::wstring& title, const std::wstring& filter) {
    // The system takes pairs of texts, each ended by a zero, and one more zero behind the last.
    std::wstring pairs = filter;
    std::ranges::replace(pairs, L'|', L'\0');
    pairs.push_back(L'\0');
    std::vector<wchar_t> path(longestPath);

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = ownWindow();
    dialog.lpstrTitle = title.c_str();
    dialog.lpstrFilter = pairs.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetOpenFileNameW(&dialog)) return std::nullopt;
    return std::wstring(path.data());
}

}  // namespace blattwart
