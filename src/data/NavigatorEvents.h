#pragma once

#include <string>

namespace blattwart {

/// What the session and the navigator's operations cause in the main window, each after it has changed
/// something. None of them throws.
class NavigatorEvents {
  public:
    virtual ~NavigatorEvents() = default;

    /// Brings tree, status line, list and command states in line with the host and the library folder. Does
    /// nothing before the main window exists.
    virtual void RefreshTree() = 0;
    /// Another host than the last one has been attached: drops the drawings, layouts and templates of that
    /// one, nodes and records. A refresh follows.
    virtual void hostChanged() = 0;
    /// Writes the first panel of the status bar for the tree's selected node.
    virtual void ShowNodeStatus() = 0;
    /// Fills the list for the tree's selected node.
    virtual void showSelectedNode() = 0;
    /// Sets whether the selected node can be dragged.
    virtual void setDragMode() = 0;
    /// Enables the commands for the selected node.
    virtual void VisbibleMnuMenu() = 0;
    /// Tells something in the second panel of the status bar, where a message box would be too much: it
    /// stands there until the user does something else.
    virtual void showHint(const std::wstring& text) = 0;
    /// Tells there what is so until the next refresh; "" for nothing. A hint stands before it.
    virtual void showNote(const std::wstring& text) = 0;
};

}  // namespace blattwart
