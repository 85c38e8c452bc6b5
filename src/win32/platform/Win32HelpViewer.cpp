#include "win32/platform/Win32HelpViewer.h"

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

constexpr UINT displayTopicCommand = 0;
constexpr UINT closeAllCommand = 0x12;

HMODULE loadFromSystemFolder(const wchar_t* name) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
    return LoadLibraryW((path + L"\\" + name).c_str());
}

}  // namespace

void Win32HelpViewer::displayTopic(WindowHandle owner, const std::string& file, const std::string& topic) {
    load();
    const auto window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(owner));
    htmlHelp_(window, file.c_str(), displayTopicCommand, reinterpret_cast<DWORD_PTR>(topic.c_str()));
}

void Win32HelpViewer::closeAll() const {
    if (htmlHelp_) htmlHelp_(nullptr, nullptr, closeAllCommand, 0);
}

// The library stays loaded: its windows have a thread of their own that outlives the last of them.
void Win32HelpViewer::load() {
    if (htmlHelp_) return;
    const HMODULE library = loadFromSystemFolder(L"hhctrl.ocx");
    if (library) htmlHelp_ = reinterpret_cast<Function*>(GetProcAddress(library, "HtmlHelpA"));
    if (!htmlHelp_)
        throw RuntimeError(errorNumber::fileNotFound,
                           L"Die Hilfe kann nicht angezeigt werden: hhctrl.ocx fehlt in Windows.");
}

}  // namespace blattwart
