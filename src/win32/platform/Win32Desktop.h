#pragma once

#include <windows.h>

#include "platform/Desktop.h"

namespace blattwart {

/// Window handles have 32 significant bits also in a 64-bit process.
inline HWND nativeWindow(WindowHandle window) {
    return static_cast<HWND>(LongToHandle(window));
}
inline WindowHandle windowHandle(HWND window) {
    return HandleToLong(window);
}

/// The main window's class. Other windows can have its caption, a folder's in Explorer for one.
inline constexpr const wchar_t* mainWindowClass = L"BlattwartMain";

class Win32Desktop : public Desktop {
  public:
    WindowHandle findWindow(const std::wstring& caption) override;
    void showNormal(WindowHandle window) override;
    void setForeground(WindowHandle window) override;
    bool isVisible(WindowHandle window) override;
    WindowHandle foreground() override;
};

}  // namespace blattwart
