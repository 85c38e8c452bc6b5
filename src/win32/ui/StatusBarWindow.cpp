#include "win32/ui/StatusBarWindow.h"

#include <commctrl.h>

#include <array>

#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"

namespace blattwart {

namespace {

constexpr DWORD statusBarStyle = WS_VISIBLE | SBARS_SIZEGRIP | CCS_NOPARENTALIGN | CCS_NORESIZE;
constexpr int busyWidth = 240;  // pixels at 96 dpi
constexpr int padding = 6;      // pixels at 96 dpi, of the text
constexpr int busyPart = 1;

}  // namespace

StatusBarWindow::StatusBarWindow(HWND parent, StatusBar& model)
    : ControlWindow(parent, model, STATUSCLASSNAMEW, statusBarStyle), model_(model) {}

void StatusBarWindow::setFont(HFONT font, int dpi) {
    dpi_ = dpi;
    ControlWindow::setFont(font);
    std::array<int, 3> borders{};
    SendMessageW(handle(), SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders.data()));
    const int height = lineHeight(font) + 2 * borders[1] + MulDiv(padding, dpi, USER_DEFAULT_SCREEN_DPI);
    model_.setHeight(toTwips(height, dpi));
}

void StatusBarWindow::show() const {
    RECT client{};
    GetClientRect(handle(), &client);
    const int own = busy_.empty() ? 0 : MulDiv(busyWidth, dpi_, USER_DEFAULT_SCREEN_DPI);
    const std::array<int, 2> wanted{own == 0 ? -1 : static_cast<int>(client.right) - own, -1};
    std::array<int, 2> shown{};
    const auto count = static_cast<WPARAM>(own == 0 ? 1 : 2);
    const auto shownCount =
        static_cast<WPARAM>(SendMessageW(handle(), SB_GETPARTS, 2, reinterpret_cast<LPARAM>(shown.data())));
    if (shownCount != count || shown[0] != wanted[0]) {
        SendMessageW(handle(), SB_SETPARTS, count, reinterpret_cast<LPARAM>(wanted.data()));
    }
    showText(0, model_.panelText(1));
    if (own != 0) showText(busyPart, busy_);
}

void StatusBarWindow::showBusy(const std::wstring& text) {
    if (text == busy_) return;
    busy_ = text;
    show();
    UpdateWindow(handle());
}

void StatusBarWindow::showText(int part, const std::wstring& text) const {
    const auto length = LOWORD(SendMessageW(handle(), SB_GETTEXTLENGTHW, static_cast<WPARAM>(part), 0));
    std::wstring shown(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(handle(), SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(shown.data()));
    shown.resize(length);
    if (shown != text) {
        SendMessageW(handle(), SB_SETTEXTW, static_cast<WPARAM>(part),
                     reinterpret_cast<LPARAM>(text.c_str()));
    }
}

}  // namespace blattwart
