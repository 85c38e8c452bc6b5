#include "win32/platform/Win32ReadingWatch.h"

namespace blattwart {

namespace {

constexpr std::uint64_t shownAfter = 2000;  // milliseconds

/// Takes Esc out of the keys pressed meanwhile. Only the first of them is looked at, as the others belong to
/// what the user does next, unless all may be thrown away.
bool takeEscape(bool throwOthersAway) {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE)) {
        if (message.message == WM_QUIT) return false;
        const bool escape = message.wParam == VK_ESCAPE;
        if (!escape && !throwOthersAway) return false;
        PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE);
        if (escape) return true;
    }
    return false;
}

}  // namespace

void Win32ReadingWatch::begin(std::wstring_view what) {
    text_ = std::wstring(what) + L" … (Esc bricht ab)";
    begunAt_ = GetTickCount64();
    shown_ = false;
    escaped_ = false;
}

bool Win32ReadingWatch::goOn() {
    if (GetTickCount64() - begunAt_ >= shownAfter) {
        const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        if (!shown_) cursorBefore_ = before;
        shown_ = true;
        // Each time anew: a call that had to wait takes its own text away when it is done.
        showWork_(text_);
    }
    return !escaped_ && !takeEscape(shown_);
}

void Win32ReadingWatch::end() {
    if (!shown_) return;
    SetCursor(cursorBefore_);
    showWork_({});
}

void Win32ReadingWatch::noteInput(const MSG& message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) escaped_ = true;
}

}  // namespace blattwart
