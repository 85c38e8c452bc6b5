#pragma once

#include <windows.h>

#include <vector>

#include "controls/Menu.h"
#include "win32/base/Handles.h"

namespace blattwart {

/// Shows a tree of menu items. What is checked, enabled and visible is looked up each time a menu opens.
class NativeMenu {
  public:
    /// Fills the menu (a bar or a pop-up); the commands count from `firstCommand` on.
    NativeMenu(MenuItem& root, int firstCommand, Menu menu);
    NativeMenu(const NativeMenu&) = delete;
    NativeMenu& operator=(const NativeMenu&) = delete;

    HMENU handle() const { return menu_.get(); }
    /// Fills the menu that is about to open; menus of others are left alone.
    void opening(HMENU popup);
    /// The item of a command; null when it is none of this menu's.
    MenuItem* item(int command) const;
    /// The enabled item with this shortcut, or null.
    MenuItem* item(const Shortcut& shortcut) const;

  private:
    void number(MenuItem& menu);
    void fill(HMENU popup, MenuItem& menu);
    void append(HMENU popup, MenuItem& item);

    int firstCommand_;
    std::vector<MenuItem*> items_;
    Menu menu_;
};

/// Pops the menu up at a place on the screen; the item that the user chose, or null.
MenuItem* chooseFromMenu(HWND owner, MenuItem& menu, POINT place);

}  // namespace blattwart
