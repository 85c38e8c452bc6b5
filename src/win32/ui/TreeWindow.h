#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <unordered_map>

#include "controls/TreeView.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/DropTarget.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/LabelEdit.h"

namespace blattwart {

/// Shows a tree model in the system's tree control. The structure is mirrored; texts and images are asked
/// for.
class TreeWindow final : public ControlWindow, private TreeViewListener {
  public:
    TreeWindow(HWND parent, TreeView& tree, EventGate& gate);
    ~TreeWindow() override;

    /// Index 0 of the images is the picture of nodes without one.
    void setLook(HFONT font, HIMAGELIST images, int dpi) const;
    LRESULT notify(NMHDR& header);
    /// A context menu is asked for at a place on the screen: what lies there is selected first, as by a
    /// click. Returns where the menu belongs.
    POINT contextMenuAt(POINT screen);
    /// The same by keyboard, for the selected node.
    POINT contextMenuByKey() const;
    bool editing() const { return labelEdit_.active(); }

  private:
    void updateBegun() override { ++updates_; }
    void updateEnded() override;
    void nodeAdded(const TreeNode& node) override;
    void nodeRemoved(const TreeNode& node) override;
    void nodeChanged(const TreeNode& node) override;
    void selectionChanged() override;
    void dropHighlightChanged() override;
    void labelEditStarted(const TreeNode& node) override;
    void labelEditCancelled() override;

    void suspendDrawing();
    void showExpansion(const TreeNode& node);
    void forget(const TreeNode& node);
    HTREEITEM item(const TreeNode* node) const;
    TreeNode& node(HTREEITEM item) const;
    TreeNode* nodeAt(POINT client) const;
    TreeNode* nodeUnderPointer() const;
    void postClick(const TreeNode& node);

    void fill(TVITEMW& wanted) const;
    LRESULT draw(NMTVCUSTOMDRAW& draw) const;
    void selected(const NMTREEVIEWW& change);
    void expanded(const NMTREEVIEWW& change);
    LRESULT doubleClicked();
    void beginDrag(const TreeNode& dragged);

    DropHandlers dropHandlers();
    bool draggedOver(POINT screen);
    /// Runs the drop's event between messages, with its target highlighted.
    void postDrop(std::function<void()> event);

    TreeView& tree_;
    EventGate& gate_;
    LabelEdit labelEdit_;
    DropRegistration dropRegistration_;
    std::unordered_map<const TreeNode*, HTREEITEM> items_;
    std::wstring clickedKey_;
    int updates_ = 0;
    bool drawingSuspended_ = false;
    bool showing_ = false;
};

}  // namespace blattwart
