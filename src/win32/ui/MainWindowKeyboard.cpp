// The keys that the main window takes before its controls do.

#include "win32/ui/MainWindow.h"

namespace blattwart {

bool MainWindow::translate(const MSG& message) {
    if (!controls_ || controls_->editing()) return false;
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 && shift) {
        SendMessageW(message.hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(message.hwnd), -1);
        return true;
    }
    if (message.message != WM_KEYDOWN || GetKeyState(VK_MENU) < 0) return false;
    return moveFocus(message.wParam) || (!shift && runShortcut(message.wParam));
}

/// Tab goes between tree and list, F6 through the toolbar too, whose buttons the arrow keys reach then.
bool MainWindow::moveFocus(WPARAM key) {
    const HWND tree = controls_->tree().handle();
    const HWND list = controls_->list().handle();
    const HWND bar = controls_->toolBar().handle();
    const HWND focus = GetFocus();
    if (key == VK_F6) {
        SetFocus(focus == tree ? list : focus == list && IsWindowVisible(bar) ? bar : tree);
    } else if (key == VK_ESCAPE && focus == bar) {
        SetFocus(tree);
    } else if (key == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
        SetFocus(focus == tree ? list : tree);
    } else {
        return false;
    }
    return true;
}

bool MainWindow::runShortcut(WPARAM key) {
    const Shortcut shortcut{static_cast<std::uint16_t>(key), GetKeyState(VK_CONTROL) < 0};
    const MenuItem* item = menu_.item(shortcut);
    if (!item) return false;
    const bool ofSelection = key == Shortcut::enter || key == Shortcut::del || key == Shortcut::f2;
    const HWND focus = GetFocus();
    if (ofSelection && !controls_->isTree(focus) && !controls_->isList(focus)) return false;
    // What is shown there cannot be deleted, and the layout that it belongs to is not meant.
    if (key == Shortcut::del && controls_->isList(focus) && form_.listShowsDetails()) return true;
    // The menu's command is what Enter does in the tree.
    const bool opensListItem = key == Shortcut::enter && controls_->isList(focus);
    const auto& action = opensListItem ? form_.lvListView.events.doubleClick : item->click;
    if (action) gate_.runCommand(action);
    return true;
}

}  // namespace blattwart
