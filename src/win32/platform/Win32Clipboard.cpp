#include "win32/platform/Win32Clipboard.h"

#include <windows.h>

#include <cstring>

#include "win32/base/SystemError.h"
#include "win32/platform/OwnWindow.h"

namespace blattwart {

namespace {

constexpr int attempts = 5;
constexpr DWORD pause = 20;  // milliseconds

/// The clipboard while this program has it.
class OpenClipboard {
  public:
    OpenClipboard() {
        for (int attempt = 1; !::OpenClipboard(ownWindow()); ++attempt) {
            if (attempt == attempts) throwSystemError();
            Sleep(pause);
        }
    }
    OpenClipboard(const OpenClipboard&) = delete;
    OpenClipboard& operator=(const OpenClipboard&) = delete;
    ~OpenClipboard() { CloseClipboard(); }
};

/// Hands over bytes, a zero at their end included.
void putFormat(UINT format, const void* bytes, std::size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!memory) throwSystemError();
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    if (SetClipboardData(format, memory)) return;
    const DWORD error = GetLastError();
    GlobalFree(memory);
    throwSystemError(error);
}

}  // namespace

void Win32Clipboard::put(const std::wstring& text, const std::string& html) {
    const OpenClipboard open;
    if (!EmptyClipboard()) throwSystemError();
    putFormat(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    putFormat(RegisterClipboardFormatW(L"HTML Format"), html.c_str(), html.size() + 1);
}

}  // namespace blattwart
