#pragma once

#include <string_view>

#include "controls/Menu.h"
#include "controls/ToolBar.h"
#include "data/NodeKey.h"

namespace blattwart {

class frmMain;

/// Kinds of tree nodes as a set.
constexpr unsigned kindBit(NodeKind kind) {
    return 1U << static_cast<unsigned>(kind);
}
inline constexpr unsigned noKind = 0;
inline constexpr unsigned kindA = kindBit(NodeKind::loadedDrawings);
inline constexpr unsigned kindZ = kindBit(NodeKind::drawing);
inline constexpr unsigned kindL = kindBit(NodeKind::layout);
inline constexpr unsigned kindB = kindBit(NodeKind::library);
inline constexpr unsigned kindD = kindBit(NodeKind::libraryFile);

/// When a command can be chosen.
enum class Enabling {
    always,
    attached,     ///< while AutoCAD is attached
    notAttached,  ///< while it is not
    byKind,       ///< for the node kinds of the row
    deletable,    ///< for the row's kinds; among layouts only while the drawing keeps another one
    modelSpace,   ///< for the row's kinds, while the drawing's active layout is not model space
    notActive,    ///< for the row's kinds; a drawing only while it is not the active one
};

enum class MenuId { none, file, edit, view, layout, autoCAD, window, help };

/// The context menus, by what they are for.
enum class ContextMenu { templates, drawings, layouts };

/// One command: everything that menus, context menus, toolbar and shortcuts need to offer it.
struct Command {
    std::wstring_view item = {};  ///< name of the menu item; "" when it is not in the menu bar
    MenuId menu = MenuId::none;
    std::wstring_view caption = {};    ///< with access key; for menu and context menus
    void (frmMain::*run)() = nullptr;  ///< null for a placeholder
    Enabling enabling = Enabling::always;
    unsigned kinds = noKind;
    Shortcut shortcut = {};
    std::wstring_view button = {};   ///< the toolbar button's key
    std::wstring_view toolTip = {};  ///< without the shortcut, which is added
    std::wstring_view pop = {};      ///< name of the context-menu item
    bool separatorBefore = false;    ///< in the menus
};

}  // namespace blattwart
