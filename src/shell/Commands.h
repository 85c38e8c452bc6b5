#pragma once

#include <span>
#include <string_view>

#include "shell/Command.h"

namespace blattwart {

/// All commands, in the order of their menus.
std::span<const Command> commands();

/// Keys of the toolbar's buttons in their order; "" is a separator. Those behind the last separator are
/// hidden.
std::span<const std::wstring_view> toolBarKeys();

/// The command that the toolbar button with this key runs.
const Command& commandOfButton(std::wstring_view key);

/// Names of a context menu's items from top to bottom: what a double click does comes first, deleting last;
/// "" is a separator. A "*" stands for the letter of the menu, the items with it form a sub-menu.
std::span<const std::wstring_view> contextMenu(ContextMenu menu);

/// The command that the context-menu item with this name runs.
const Command& commandOfPop(std::wstring_view name);

/// Caption of a menu of the menu bar, with its access key.
std::wstring_view menuCaption(MenuId menu);

}  // namespace blattwart
