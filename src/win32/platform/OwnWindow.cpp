#include "win32/platform/OwnWindow.h"

namespace blattwart {

namespace {

BOOL CALLBACK findVisible(HWND window, LPARAM result) {
    if (!IsWindowVisible(window) || GetWindow(window, GW_OWNER)) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

}  // namespace

HWND ownWindow() {
    if (const HWND active = GetActiveWindow()) return active;
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), findVisible, reinterpret_cast<LPARAM>(&window));
    return window ? GetLastActivePopup(window) : nullptr;
}

}  // namespace blattwart
