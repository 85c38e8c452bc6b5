#include "win32/ui/ToolBarWindow.h"

#include <vector>

#include "win32/ui/Dpi.h"

namespace blattwart {

namespace {

constexpr DWORD toolBarStyle =
    WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NOPARENTALIGN | CCS_NORESIZE;
// Pixels at 96 dpi. With this padding all buttons fit into the window as it opens for the first time.
constexpr int buttonPadding = 6;  // of a button round its picture, both sides together
constexpr int margin = 2;         // above and below the buttons

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
    SendMessageW(handle(), TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
}

bool ToolBarWindow::command(int id) {
    const int index = id - firstCommand_;
    if (index < 1 || index > static_cast<int>(model_.buttons().size())) return false;
    gate_.runCommand([&] { model_.userClicks(model_.button(index).key); });
    // A check button has changed by itself; what counts is the model.
    showState(index);
    return true;
}

void ToolBarWindow::showState(int index) const {
    const ToolBarButton& button = model_.button(index);
    const WPARAM command = firstCommand_ + index;
    const LRESULT wanted = stateOf(button);
    if (SendMessageW(handle(), TB_GETSTATE, command, 0) != wanted) {
        SendMessageW(handle(), TB_SETSTATE, command, wanted);
    }
}

}  // namespace blattwart
