#include "win32/ui/StatusBarWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"

namespace blattwart {

namespace {

constexpr DWORD statusBarStyle = WS_VISIBLE | SBARS_SIZEGRIP | CCS_NOPARENTALIGN | CCS_NORESIZE;
constexpr int busyWidth = 240;   // pixels at 96 dpi
constexpr int padding = 6;       // pixels at 96 dpi, of the text
constexpr int panelMargin = 28;  // pixels at 96 dpi, the size grip included
constexpr std::size_t mostParts = 3;

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
    std::vector<std::wstring> texts{model_.panelText(1)};
    std::vector<int> widths{0};  // the first has the room that the others leave
    if (const std::wstring& hint = model_.panelText(2); !hint.empty()) {
        texts.push_back(hint);
        widths.push_back(std::min(widthOf(hint), static_cast<int>(client.right) * 2 / 3));
    }
    if (!busy_.empty()) {
        texts.push_back(busy_);
        widths.push_back(MulDiv(busyWidth, dpi_, USER_DEFAULT_SCREEN_DPI));
    }
    std::vector<int> edges(texts.size(), -1);
    int edge = client.right;
    for (std::size_t part = texts.size() - 1; part > 0; --part) edges[part - 1] = edge -= widths[part];
    if (edges != parts()) {
        SendMessageW(handle(), SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    }
    for (std::size_t part = 0; part < texts.size(); ++part) showText(static_cast<int>(part), texts[part]);
}

/// Right edges of the panels that there are.
std::vector<int> StatusBarWindow::parts() const {
    std::vector<int> edges(mostParts);
    const auto count =
        SendMessageW(handle(), SB_GETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    edges.resize(static_cast<std::size_t>(count));
    return edges;
}

/// Pixels that a panel with the text needs.
int StatusBarWindow::widthOf(const std::wstring& text) const {
    const HDC screen = GetDC(handle());
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(handle(), WM_GETFONT, 0, 0));
    const HGDIOBJ previous = SelectObject(screen, font);
    SIZE size{};
    GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(screen, previous);
    ReleaseDC(handle(), screen);
    return size.cx + MulDiv(panelMargin, dpi_, USER_DEFAULT_SCREEN_DPI);
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
