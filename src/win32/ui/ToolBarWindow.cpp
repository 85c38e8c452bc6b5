#include "win32/ui/ToolBarWindow.h"

#include <algorithm>
#include <vector>

#include "win32/ui/Dpi.h"
#include "win32/ui/NativeMenu.h"

namespace blattwart {

namespace {

// As a list, since only then texts can be kept from being shown on the buttons.
constexpr DWORD toolBarStyle = WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_NODIVIDER |
                               CCS_NOPARENTALIGN | CCS_NORESIZE;
constexpr int buttonPadding = 6;    // pixels at 96 dpi, of a button round its picture, both sides together
constexpr int margin = 2;           // pixels at 96 dpi, above and below the buttons
constexpr int chevronPicture = 22;  // behind those of the buttons
constexpr const wchar_t* chevronText = L"Weitere Schaltflächen";

BYTE stateOf(const ToolBarButton& button) {
    int state = 0;
    if (button.enabled) state |= TBSTATE_ENABLED;
    if (button.pressed) state |= TBSTATE_CHECKED;
    if (!button.visible) state |= TBSTATE_HIDDEN;
    return static_cast<BYTE>(state);
}

BYTE styleOf(const ToolBarButton& button) {
    if (button.style == ToolBarButton::Style::separator) return BTNS_SEP;
    return button.style == ToolBarButton::Style::check ? BTNS_CHECK : BTNS_BUTTON;
}

}  // namespace

ToolBarWindow::ToolBarWindow(HWND parent, ToolBar& model, EventGate& gate, int firstCommand)
    : ControlWindow(parent, model, TOOLBARCLASSNAMEW, toolBarStyle),
      model_(model),
      gate_(gate),
      firstCommand_(firstCommand) {
    SetWindowTextW(handle(), L"Symbolleiste");  // for screen readers
    SendMessageW(handle(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    // The texts are not shown on the buttons, but as their tooltips and to screen readers.
    SendMessageW(handle(), TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS | TBSTYLE_EX_DOUBLEBUFFER);
    model_.buttonChanged = [this](int index) { showState(index); };
}

ToolBarWindow::~ToolBarWindow() {
    model_.buttonChanged = nullptr;
}

void ToolBarWindow::setImages(HIMAGELIST images, int dpi) {
    SendMessageW(handle(), TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    // The size of the buttons follows the pictures only when they are added anew.
    while (SendMessageW(handle(), TB_DELETEBUTTON, 0, 0)) {
    }
    const auto scaled = [dpi](int pixels) { return MulDiv(pixels, dpi, USER_DEFAULT_SCREEN_DPI); };
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images, &width, &height);
    const int buttonHeight = height + scaled(buttonPadding);
    SendMessageW(handle(), TB_SETBUTTONSIZE, 0, MAKELPARAM(width + scaled(buttonPadding), buttonHeight));
    addButtons();
    model_.setHeight(toTwips(buttonHeight + 2 * scaled(margin), dpi));
}

void ToolBarWindow::addButtons() {
    std::vector<TBBUTTON> buttons;
    int command = firstCommand_;
    for (const ToolBarButton& button : model_.buttons()) {
        TBBUTTON added{};
        added.iBitmap = button.image;
        added.idCommand = ++command;
        added.fsState = stateOf(button);
        added.fsStyle = styleOf(button);
        if (added.fsStyle == BTNS_SEP) {
            added.iBitmap = 0;  // here: the usual width
        } else {
            added.iString = reinterpret_cast<INT_PTR>(button.toolTip.c_str());
        }
        buttons.push_back(added);
    }
    TBBUTTON opening{};
    opening.iBitmap = chevronPicture;
    opening.idCommand = ++command;
    opening.fsState = TBSTATE_ENABLED;
    opening.fsStyle = BTNS_BUTTON;
    opening.iString = reinterpret_cast<INT_PTR>(chevronText);
    buttons.push_back(opening);
    SendMessageW(handle(), TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    measureButtons();
}

void ToolBarWindow::measureButtons() {
    ends_.clear();
    for (int index = 1; index < chevron(); ++index) {
        // What is never shown takes no room.
        const int end = model_.button(index).visible ? static_cast<int>(placeOf(index).right) : 0;
        ends_.push_back(ends_.empty() ? end : std::max(end, ends_.back()));
    }
    const RECT place = placeOf(chevron());
    chevronWidth_ = static_cast<int>(place.right - place.left);
    fitting_ = 0;
    fit();
}

void ToolBarWindow::fit() {
    RECT client{};
    GetClientRect(handle(), &client);
    const bool all = ends_.back() <= client.right;
    const LONG room = client.right - (all ? 0 : chevronWidth_);
    int fitting = static_cast<int>(std::ranges::upper_bound(ends_, room) - ends_.begin());
    while (fitting > 0 && model_.button(fitting).style == ToolBarButton::Style::separator) --fitting;
    if (fitting == fitting_) return;
    fitting_ = fitting;
    for (int index = 1; index < chevron(); ++index) showState(index);
    SendMessageW(handle(), TB_HIDEBUTTON, static_cast<WPARAM>(firstCommand_ + chevron()), all);
}

RECT ToolBarWindow::placeOf(int index) const {
    RECT place{};
    SendMessageW(handle(), TB_GETRECT, static_cast<WPARAM>(firstCommand_ + index),
                 reinterpret_cast<LPARAM>(&place));
    return place;
}

bool ToolBarWindow::command(int id) {
    const int index = id - firstCommand_;
    if (index < 1 || index > chevron()) return false;
    if (index == chevron()) {
        chooseAmongHidden();
    } else {
        clicked(index);
    }
    return true;
}

void ToolBarWindow::clicked(int index) {
    gate_.runCommand([&] { model_.userClicks(model_.button(index).key); });
    // A check button has changed by itself; what counts is the model.
    showState(index);
}

void ToolBarWindow::chooseAmongHidden() {
    MenuItem menu;
    for (int index = fitting_ + 1; index < chevron(); ++index) {
        const ToolBarButton& button = model_.button(index);
        if (!button.visible) continue;
        if (button.style == ToolBarButton::Style::separator) {
            menu.addSeparator();
            continue;
        }
        MenuItem& entry = menu.add(button.key, button.toolTip);
        entry.setEnabled(button.enabled);
        entry.setChecked(button.pressed);
        entry.click = [this, index] { clicked(index); };
    }
    const RECT place = placeOf(chevron());
    POINT below{place.left, place.bottom};
    ClientToScreen(handle(), &below);
    const MenuItem* chosen = chooseFromMenu(GetParent(handle()), menu, below);
    if (chosen) chosen->click();
}

void ToolBarWindow::showState(int index) const {
    const ToolBarButton& button = model_.button(index);
    const WPARAM command = firstCommand_ + index;
    const LRESULT wanted = stateOf(button) | (index > fitting_ ? TBSTATE_HIDDEN : 0);
    if (SendMessageW(handle(), TB_GETSTATE, command, 0) != wanted) {
        SendMessageW(handle(), TB_SETSTATE, command, wanted);
    }
}

}  // namespace blattwart
