#pragma once

#include <string>

#include "controls/TreeView.h"
#include "data/NavigatorRecords.h"
#include "platform/Locale.h"

namespace blattwart {

/// Whether a reading changes what is in the tree already or drops it first.
enum class Reading { update, anew };

/// The shape of the navigator tree: its roots, the keys, images and marks of its nodes. Nodes that cannot be
/// found by their key are passed over, since records outlive their nodes.
class NavigatorTree {
  public:
    NavigatorTree(TreeView& tree, NavigatorRecords& records, const Locale& locale)
        : tree_(tree), records_(records), locale_(locale) {}

    /// First character of the selected node's key, as GetSelectedNodeKind or the list filling last took it.
    std::wstring CurrentNodeKind;
    /// 0 until the first refresh has ended; while it is 0, active nodes are also selected.
    std::int16_t TreeInitialised = 0;

    void BuildTree();
    void GetSelectedNodeKind();
    /// Adds the node of the record that took LastNumber: a template under "B", a layout under the drawing
    /// with `parentNumber`, or (0) a drawing under "A".
    void AddTreeNode(const std::wstring& text, bool isTemplate, bool isActive, std::int32_t parentNumber);
    void MarkNodeActive(const NodeKey& key);
    void ClearActiveMarks();
    /// Removes a node with all below it, if there is one.
    void removeNode(const NodeKey& key);

    /// Look of the root of the loaded drawings before they are read.
    void resetDrawingsRoot();
    void showAttached(bool attached);
    void resetLibraryRoot();
    void showLibraryEmpty();

    TreeView& view() { return tree_; }
    TreeNode* find(const NodeKey& key) { return tree_.find(key.text()); }
    /// Of the kind none without a selection.
    NodeKey selectedKey() const;

  private:
    TreeView& tree_;
    NavigatorRecords& records_;
    const Locale& locale_;
};

}  // namespace blattwart
