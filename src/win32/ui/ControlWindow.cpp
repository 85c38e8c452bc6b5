#include "win32/ui/ControlWindow.h"

#include "win32/base/SystemError.h"
#include "win32/ui/Dpi.h"

namespace blattwart {

ControlWindow::ControlWindow(HWND parent, Control& control, const wchar_t* className, DWORD style,
                             DWORD extendedStyle)
    : window_(CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                              parent, nullptr, GetModuleHandleW(nullptr), nullptr)),
      control_(control) {
    if (!window_) throwSystemError();
}

ControlWindow::~ControlWindow() {
    DestroyWindow(window_);
}

void ControlWindow::setFont(HFONT font) const {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void ControlWindow::place(HDWP& moves, int dpi, Inset inset) const {
    if ((IsWindowEnabled(window_) != FALSE) != control_.enabled()) EnableWindow(window_, control_.enabled());
    const float top = inset.top + control_.top();
    // Edges are rounded, not sizes: neighbours meet without a gap.
    const RECT wanted{toPixels(control_.left() + inset.left, dpi), toPixels(top, dpi),
                      toPixels(control_.left() + control_.width(), dpi),
                      toPixels(top + control_.height(), dpi)};
    RECT current{};
    GetWindowRect(window_, &current);
    MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&current), 2);
    const bool shown = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
    if (EqualRect(&wanted, &current) && shown == control_.visible()) return;
    const UINT visibility = shown == control_.visible() ? 0
                            : control_.visible()        ? SWP_SHOWWINDOW
                                                        : SWP_HIDEWINDOW;
    moves = DeferWindowPos(moves, window_, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                           wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE | visibility);
}

void setWindowText(HWND window, const std::wstring& text) {
    std::wstring current(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    current.resize(
        static_cast<std::size_t>(GetWindowTextW(window, current.data(), static_cast<int>(current.size()))));
    if (current != text) SetWindowTextW(window, text.c_str());
}

}  // namespace blattwart
