#include "win32/ui/PictureWindow.h"

#include <algorithm>

#include "win32/base/SystemError.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/MemoryContext.h"
#include "win32/ui/PictureDecoder.h"

namespace blattwart {

namespace {

// Pixels at 96 dpi.
constexpr int pictureMargin = 8;
constexpr int smallestRoom = 32;
constexpr UINT_PTR paintSubclass = 1;

}  // namespace

/// The window's text is what screen readers say.
PictureWindow::PictureWindow(HWND list, const PictureBox& model, Guard& guard)
    : window_(CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0, list, nullptr,
                              GetModuleHandleW(nullptr), nullptr)),
      model_(model),
      guard_(guard) {
    if (!window_) throwSystemError();
    SetWindowSubclass(window_, procedure, paintSubclass, reinterpret_cast<DWORD_PTR>(this));
}

PictureWindow::~PictureWindow() {
    DestroyWindow(window_);
}

void PictureWindow::show(const RECT& room, int dpi) {
    takePicture();
    const int gap = MulDiv(pictureMargin, dpi, USER_DEFAULT_SCREEN_DPI);
    const RECT inner{room.left + gap, room.top + gap, room.right - gap, room.bottom - gap};
    const LONG least = MulDiv(smallestRoom, dpi, USER_DEFAULT_SCREEN_DPI);
    const bool fits = inner.right - inner.left >= least && inner.bottom - inner.top >= least;
    const bool visible = bitmap_ && fits;
    if (visible) {
        const SIZE size = sizeIn(inner);
        place({inner.left, inner.top, inner.left + size.cx, inner.top + size.cy});
    }
    if (visible != ((GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0))
        ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void PictureWindow::takePicture() {
    if (shown_ == model_.picture()) return;
    shown_ = model_.picture();
    bitmap_.reset();
    if (shown_) decodeShown();
    setWindowText(window_, model_.name());
    InvalidateRect(window_, nullptr, FALSE);
}

void PictureWindow::decodeShown() {
    ground_ = GetSysColor(COLOR_WINDOW);
    bitmap_ = decode(*shown_, ground_);
}

SIZE PictureWindow::sizeIn(const RECT& room) const {
    const int width = static_cast<int>(room.right - room.left);
    const int height = static_cast<int>(room.bottom - room.top);
    const int heightOfWhole = MulDiv(width, shown_->height, shown_->width);
    if (heightOfWhole <= height) return {width, std::max(heightOfWhole, 1)};
    return {std::max(MulDiv(height, shown_->width, shown_->height), 1), height};
}

void PictureWindow::place(const RECT& wanted) const {
    RECT current{};
    GetWindowRect(window_, &current);
    MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&current), 2);
    if (EqualRect(&wanted, &current)) return;
    SetWindowPos(window_, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void PictureWindow::paint() {
    PAINTSTRUCT painting{};
    const HDC screen = BeginPaint(window_, &painting);
    if (shown_ && ground_ != GetSysColor(COLOR_WINDOW)) decodeShown();
    if (bitmap_) {
        RECT client{};
        GetClientRect(window_, &client);
        const MemoryContext picture(bitmap_.get());
        SetStretchBltMode(screen, HALFTONE);
        SetBrushOrgEx(screen, 0, 0, nullptr);
        StretchBlt(screen, 0, 0, client.right, client.bottom, picture.get(), 0, 0, shown_->width,
                   shown_->height, SRCCOPY);
    }
    EndPaint(window_, &painting);
}

LRESULT CALLBACK PictureWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                          DWORD_PTR picture) {
    auto& self = *reinterpret_cast<PictureWindow*>(picture);
    switch (message) {
        case WM_PAINT:
            self.guard_.guarded([&] { self.paint(); });
            return 0;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_SETTEXT:
            // The class would write it into the picture.
            return DefWindowProcW(window, message, wParam, lParam);
        default:
            return DefSubclassProc(window, message, wParam, lParam);
    }
}

}  // namespace blattwart
