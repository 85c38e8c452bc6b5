#include "win32/ui/DialogLayout.h"

#include <algorithm>

#include "win32/ui/Dpi.h"

namespace blattwart {

namespace {

using enum Anchors;

bool goesRight(Anchors anchors) {
    return anchors == topRight || anchors == bottomRight;
}
bool goesDown(Anchors anchors) {
    return anchors == bottomLeft || anchors == bottomRight || anchors == bottomWide;
}
bool widens(Anchors anchors) {
    return anchors == topWide || anchors == bottomWide || anchors == all;
}

RECT placeOf(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

SIZE inPixels(HWND dialog, SIZE units) {
    RECT rectangle{0, 0, units.cx, units.cy};
    MapDialogRect(dialog, &rectangle);
    return {rectangle.right, rectangle.bottom};
}

SIZE clientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

}  // namespace

DialogLayout::DialogLayout(HWND dialog, SIZE made, SIZE smallest)
    : dialog_(dialog),
      made_(inPixels(dialog, made)),
      smallest_(inPixels(dialog, smallest)),
      madeWith_(windowDpi(dialog)),
      dpi_(madeWith_) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        controls_.push_back({child, placeOf(child), topLeft});
}

void DialogLayout::anchor(HWND control, Anchors anchors) {
    std::ranges::find(controls_, control, &Placed::control)->anchors = anchors;
}

void DialogLayout::place() const {
    const SIZE now = clientSize(dialog_);
    const LONG wider = now.cx - scaled(made_.cx);
    const LONG higher = now.cy - scaled(made_.cy);
    HDWP moves = BeginDeferWindowPos(static_cast<int>(controls_.size()));
    for (const auto& [control, made, anchors] : controls_) {
        RECT wanted{scaled(made.left), scaled(made.top), scaled(made.right), scaled(made.bottom)};
        if (goesRight(anchors)) wanted.left += wider;
        if (goesRight(anchors) || widens(anchors)) wanted.right += wider;
        if (goesDown(anchors)) wanted.top += higher;
        if (goesDown(anchors) || anchors == all) wanted.bottom += higher;
        const RECT present = placeOf(control);
        if (EqualRect(&wanted, &present)) continue;
        // A text that ends in dots is another one in another width; a list keeps what it shows.
        const UINT copies = anchors == all ? 0 : SWP_NOCOPYBITS;
        moves = DeferWindowPos(moves, control, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                               wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE | copies);
    }
    EndDeferWindowPos(moves);
}

void DialogLayout::limit(MINMAXINFO& info) const {
    RECT window{};
    GetWindowRect(dialog_, &window);
    const SIZE client = clientSize(dialog_);
    info.ptMinTrackSize = {scaled(smallest_.cx) + window.right - window.left - client.cx,
                           scaled(smallest_.cy) + window.bottom - window.top - client.cy};
}

void DialogLayout::fitScreen() const {
    RECT window{};
    GetWindowRect(dialog_, &window);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(dialog_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& screen = monitor.rcWork;
    const LONG width = std::min(window.right - window.left, screen.right - screen.left);
    const LONG height = std::min(window.bottom - window.top, screen.bottom - screen.top);
    const LONG left = std::clamp(window.left, screen.left, screen.right - width);
    const LONG top = std::clamp(window.top, screen.top, screen.bottom - height);
    SetWindowPos(dialog_, nullptr, static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                 static_cast<int>(height), SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace blattwart
