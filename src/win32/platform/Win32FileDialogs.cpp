#include "win32/platform/Win32FileDialogs.h"

#include <windows.h>

#include <commdlg.h>
#include <shobjidl.h>
#include <wrl/client.h>

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "win32/base/SystemError.h"
#include "win32/platform/OwnWindow.h"

namespace blattwart {

namespace {

constexpr std::size_t longestPath = 32768;

/// What both of the system's dialogs for a file are told.
class FileQuestion {
  public:
    /// `path` is proposed to the user.
    FileQuestion(const std::wstring& title, std::wstring filter, std::wstring path, DWORD flags)
        : title_(title), pairs_(std::move(filter)), path_(std::move(path)) {
        // The system takes pairs of texts, each ended by a zero, and one more zero behind the last.
        std::ranges::replace(pairs_, L'|', L'\0');
        pairs_.push_back(L'\0');
        path_.resize(longestPath);
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = ownWindow();
        dialog.lpstrTitle = title_.c_str();
        dialog.lpstrFilter = pairs_.c_str();
        dialog.lpstrFile = path_.data();
        dialog.nMaxFile = static_cast<DWORD>(path_.size());
        dialog.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | flags;
    }

    /// What stands before the zero that the system has written.
    std::wstring path() const { return path_.substr(0, path_.find(L'\0')); }

    OPENFILENAMEW dialog{};

  private:
    const std::wstring& title_;
    std::wstring pairs_;
    std::wstring path_;
};

/// The path of a folder that the shell knows.
std::optional<std::wstring> pathOf(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return std::nullopt;
    std::wstring path(name);
    CoTaskMemFree(name);
    return path;
}

}  // namespace

std::optional<std::wstring> Win32FileDialogs::open(const std::wstring& title, const std::wstring& filter) {
    FileQuestion question(title, filter, {}, OFN_FILEMUSTEXIST);
    if (!GetOpenFileNameW(&question.dialog)) return std::nullopt;
    return question.path();
}

std::optional<std::wstring> Win32FileDialogs::save(const std::wstring& title, const std::wstring& filter,
                                                   const std::wstring& name) {
    FileQuestion question(title, filter, name, OFN_OVERWRITEPROMPT | OFN_NOREADONLYRETURN);
    const std::wstring extension = name.substr(name.rfind(L'.') + 1);
    question.dialog.lpstrDefExt = extension.c_str();
    if (!GetSaveFileNameW(&question.dialog)) return std::nullopt;
    return question.path();
}

std::optional<std::wstring> Win32FileDialogs::folder(const std::wstring& title, const std::wstring& folder) {
    using Microsoft::WRL::ComPtr;
    ComPtr<IFileDialog> dialog;
    const HRESULT made = CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_PPV_ARGS(dialog.GetAddressOf()));
    if (FAILED(made)) throw RuntimeError(made, systemText(made));
    dialog->SetTitle(title.c_str());
    dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR);
    ComPtr<IShellItem> item;
    if (SUCCEEDED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_PPV_ARGS(item.GetAddressOf()))))
        dialog->SetFolder(item.Get());
    item.Reset();
    if (FAILED(dialog->Show(ownWindow())) || FAILED(dialog->GetResult(item.GetAddressOf())))
        return std::nullopt;
    return pathOf(*item.Get());
}

}  // namespace blattwart
