// How the window of a form comes to be, and where it and its controls stand.

#include <algorithm>

#include "win32/base/UserFunction.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"
#include "win32/ui/FormDialog.h"
#include "win32/ui/Pictures.h"

namespace blattwart {

namespace {

constexpr int toolTipWidth = 300;  // pixels at 96 dpi

/// Moves a window into the middle of its owner, but not off the screen.
void centreOverOwner(HWND window) {
    RECT owner{};
    RECT own{};
    GetWindowRect(GetWindow(window, GW_OWNER), &owner);
    GetWindowRect(window, &own);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&owner, MONITOR_DEFAULTTONEAREST), &monitor);
    const auto placed = [](LONG ownerMiddle, LONG size, LONG begin, LONG end) {
        return static_cast<int>(std::max(begin, std::min(ownerMiddle - size / 2, end - size)));
    };
    SetWindowPos(window, nullptr,
                 placed((owner.left + owner.right) / 2, own.right - own.left, monitor.rcWork.left,
                        monitor.rcWork.right),
                 placed((owner.top + owner.bottom) / 2, own.bottom - own.top, monitor.rcWork.top,
                        monitor.rcWork.bottom),
                 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

INT_PTR FormDialog::begin() {
    gate_.setWindow(window_);
    for (const auto& [kind, size] : {std::pair{ICON_SMALL, SM_CXSMICON}, std::pair{ICON_BIG, SM_CXICON}})
        SendMessageW(window_, WM_SETICON, static_cast<WPARAM>(kind),
                     reinterpret_cast<LPARAM>(programIcon(size)));
    // The layout below follows the resolution, once and for all controls.
    static const auto setDpiBehavior =
        userFunction<BOOL WINAPI(HWND, int, int)>("SetDialogDpiChangeBehavior");
    constexpr int disableAll = 1;
    if (setDpiBehavior) setDpiBehavior(window_, disableAll, disableAll);
    makeLists();
    layout_.emplace(window_, made_, smallest_);
    for (const BoundControl& bound : controls_) layout_->anchor(item(bound.id), bound.anchors);
    layout_->place();
    layout_->fitScreen();
    centreOverOwner(window_);
    makeToolTips();
    for (const BoundControl& bound : controls_) {
        show(bound);
        controlOf(bound).changed = [this, &bound] { show(bound); };
    }
    begun_ = true;
    keys_.emplace([this](const MSG& message) {
        return gate_.guard().guarded([&] { return takeKey(message); }, false);
    });
    form_.opened();
    for (const auto& list : lists_) list->showTopRow();
    Control* first = form_.firstField();
    if (first) setFocus(*first);
    return first ? FALSE : TRUE;
}

void FormDialog::makeLists() {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
    boldFont_ = boldFont(font);
    for (const BoundControl& bound : controls_) {
        auto* const* model = std::get_if<ListView*>(&bound.model);
        if (!model) continue;
        const HWND placeholder = item(bound.id);
        RECT place{};
        GetWindowRect(placeholder, &place);
        MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
        const auto& list = lists_.emplace_back(std::make_unique<ListWindow>(window_, **model, gate_));
        // Behind the placeholder in the order of the tab key, and so behind the label that names it.
        SetWindowPos(list->handle(), placeholder, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOACTIVATE);
        DestroyWindow(placeholder);
        SetWindowLongPtrW(list->handle(), GWLP_ID, bound.id);
        list->setFonts(font, boldFont_.get(), windowDpi(window_));
    }
}

/// The texts are asked for each time that one is to be shown.
void FormDialog::makeToolTips() {
    const HWND tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0,
                                      0, 0, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, MulDiv(toolTipWidth, layout_->dpi(), USER_DEFAULT_SCREEN_DPI));
    for (const BoundControl& bound : controls_) {
        if (std::holds_alternative<ListView*>(bound.model)) continue;
        TOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = window_;
        tool.uId = reinterpret_cast<UINT_PTR>(item(bound.id));
        tool.lpszText = LPSTR_TEXTCALLBACKW;
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void FormDialog::setDpi(int dpi, const RECT& suggested) {
    Font font = messageFont(dpi);
    Font bold = boldFont(font.get());
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    for (const auto& list : lists_) list->setFonts(font.get(), bold.get(), dpi);
    font_ = std::move(font);
    boldFont_ = std::move(bold);
    layout_->setDpi(dpi);
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layout_->place();
}

DialogPlacement FormDialog::placement() const {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window_, &placement);
    const RECT& place = placement.rcNormalPosition;
    const int dpi = systemDpi();
    return {{toTwips(place.left, dpi), toTwips(place.top, dpi), toTwips(place.right - place.left, dpi),
             toTwips(place.bottom - place.top, dpi)},
            IsZoomed(window_) != FALSE};
}

void FormDialog::setPlacement(const DialogPlacement& placement) {
    const auto& [left, top, width, height] = placement.normal;
    const int dpi = systemDpi();
    WINDOWPLACEMENT wanted{};
    wanted.length = sizeof wanted;
    wanted.showCmd = SW_HIDE;
    wanted.rcNormalPosition = {toPixels(left, dpi), toPixels(top, dpi), toPixels(left + width, dpi),
                               toPixels(top + height, dpi)};
    if (MonitorFromRect(&wanted.rcNormalPosition, MONITOR_DEFAULTTONULL)) {
        SetWindowPlacement(window_, &wanted);
        // That may have brought it to a monitor of another resolution, and so into another size.
        SetWindowPlacement(window_, &wanted);
        layout_->fitScreen();
    }
    if (placement.maximised) ShowWindow(window_, SW_SHOWMAXIMIZED);
}

}  // namespace blattwart
