#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"
#include "controls/Keys.h"
#include "controls/Update.h"

namespace blattwart {

class TreeView;

/// A system colour by its index, as the tree's text colours are given.
enum class SystemColor { windowText = 8, appWorkspace = 12, buttonText = 18 };

/// One node of a tree. Setters tell the tree's listener; nodes live as long as they are in the tree.
class TreeNode {
  public:
    const std::wstring& key() const { return key_; }
    const std::wstring& text() const { return look_.text; }
    int image() const { return look_.image; }
    /// Image while selected; 0 when not set (then the normal image is shown).
    int selectedImage() const { return look_.selectedImage; }
    bool bold() const { return look_.bold; }
    SystemColor color() const { return look_.color; }
    bool expanded() const { return look_.expanded; }
    TreeNode* parent() const { return parent_; }
    const std::vector<TreeNode*>& children() const { return children_; }

    void setText(std::wstring text);
    void setImage(int image);
    void setBold(bool bold);
    void setColor(SystemColor color);
    /// Collapsing a node above the selection selects the node, as the native control does.
    void setExpanded(bool expanded);
    /// Renames the node. Throws RuntimeError (duplicate key) when another node has the key.
    void setKey(std::wstring key);

  private:
    friend class TreeView;
    struct Look {
        std::wstring text;
        int image = 0;
        int selectedImage = 0;
        bool bold = false;
        SystemColor color = SystemColor::windowText;
        bool expanded = false;
        friend bool operator==(const Look&, const Look&) = default;
    };
    TreeNode(TreeView& tree, TreeNode* parent, std::wstring key, std::uint64_t serial)
        : tree_(tree), parent_(parent), key_(std::move(key)), serial_(serial) {}
    template <class T>
    void change(T Look::*field, T value);

    TreeView& tree_;
    TreeNode* parent_;
    std::wstring key_;
    std::uint64_t serial_;  // ascending in the order in which nodes were added, so also among siblings
    Look look_;
    std::vector<TreeNode*> children_;
};

/// The window that shows a tree. Structure and selection are told when they change, looks once per update.
/// Within an update, updateBegun precedes the first thing that is told and updateEnded follows the last; an
/// update that tells nothing tells neither.
class TreeViewListener {
  public:
    virtual ~TreeViewListener() = default;
    virtual void updateBegun() = 0;
    virtual void updateEnded() = 0;
    virtual void nodeAdded(const TreeNode& node) = 0;    ///< appended behind its parent's last child
    virtual void nodeRemoved(const TreeNode& node) = 0;  ///< with everything below it; the selection has left
                                                         ///< it already, the node itself goes after this
    virtual void nodeChanged(const TreeNode& node) = 0;  ///< text, images, bold, colour or expansion
    virtual void selectionChanged() = 0;
    virtual void dropHighlightChanged() = 0;
    virtual void labelEditStarted(const TreeNode& node) = 0;
    virtual void labelEditCancelled() = 0;
};

/// A tree control without its window: nodes by key, the selection, the label being edited.
class TreeView : public Control {
  public:
    /// What the user did. The form fills them in; setting things in code never raises one.
    struct Events {
        std::function<void(TreeNode&)> nodeClick;
        std::function<void()> doubleClick;
        std::function<void()> contextMenu;
        std::function<void(const std::wstring& text)> afterLabelEdit;
        /// The user has broken off the edit; not raised when code cancels it.
        std::function<void()> labelEditCancelled;
        /// Something was dropped on the highlighted node: files, or the key of a node or list entry.
        std::function<void(const std::vector<std::wstring>& files)> filesDropped;
        std::function<void(const std::wstring& key)> keyDropped;
    } events;

    TreeView() = default;

    /// Appends a node behind the last child of `parent` (null: behind the last root). Throws duplicate key.
    TreeNode& add(TreeNode* parent, std::wstring key, std::wstring text, int image = 0,
                  int selectedImage = 0);
    /// Throws RuntimeError (element not found) for an unknown key.
    TreeNode& node(std::wstring_view key);
    TreeNode* find(std::wstring_view key);
    /// Removes a node and all below it. When the selection is among them, it moves to the next sibling of the
    /// removed node, else to the previous, else to the parent. A label edit or drop highlight there ends.
    /// Throws element not found.
    void remove(std::wstring_view key);
    void clear();
    const std::vector<TreeNode*>& roots() const { return roots_; }
    /// Calls the visitor for every node, parents before children, in displayed order.
    /// The visitor must not add or remove nodes.
    void forEach(const std::function<void(TreeNode&)>& visitor);

    TreeNode* selected() const { return selected_; }
    /// Selects the node, expanding all above it as the native control does. Leaving a node whose label is
    /// edited cancels the edit: the edited node is always the selected one.
    void select(TreeNode& node);

    /// Nested brackets around a change of many nodes. Looks are compared when the outermost ends: what was
    /// changed and changed back is not told.
    void BeginUpdate();
    void EndUpdate();

    /// The new listener is told nothing of what is in the tree already.
    void setListener(TreeViewListener* listener);

    /// What the user did, reported by the window (or by a test). A click selects the node and raises
    /// nodeClick, also on the node that is selected already.
    void userClicks(TreeNode& node);
    /// Collapsing above the selection counts as a click on the collapsed node.
    void userExpands(TreeNode& node, bool expanded);

    /// Whether a drag of the selected node begins by itself.
    bool dragAutomatic() const { return dragAutomatic_; }
    void setDragAutomatic(bool automatic) { dragAutomatic_ = automatic; }
    TreeNode* dropHighlight() const { return dropHighlight_; }
    void setDropHighlight(TreeNode* node);

    /// Label editing of the selected node; `text` stands in the field, all selected. An edit under way is
    /// cancelled first. Throws RuntimeError (object not set) when nothing is selected.
    void startLabelEdit(std::wstring text);
    void cancelLabelEdit();
    TreeNode* editedNode() const { return editedNode_; }
    const std::wstring& editText() const { return editText_; }
    /// The window reports the end of the edit: no text when it was cancelled. Once the edit is over
    /// afterLabelEdit or labelEditCancelled is raised; the node keeps its text. Nothing happens when no edit
    /// is under way.
    void userEndsLabelEdit(const std::wstring* text);

  private:
    friend class TreeNode;
    struct BySerial {
        bool operator()(const TreeNode* a, const TreeNode* b) const { return a->serial_ < b->serial_; }
    };
    using Looks = std::map<TreeNode*, TreeNode::Look, BySerial>;

    template <class... Parameters, class... Arguments>
    void tell(void (TreeViewListener::*what)(Parameters...), Arguments&&... arguments);
    void lookWillChange(TreeNode& node);
    void rename(TreeNode& node, std::wstring key);
    std::vector<TreeNode*>& siblingsOf(const TreeNode& node);
    TreeNode* neighbourOf(TreeNode& node);
    void moveSelection(TreeNode* node);
    void leave(TreeNode& node, TreeNode* newSelection);
    void detach(TreeNode& node);
    void destroy(TreeNode& node);

    KeyMap<std::unique_ptr<TreeNode>> byKey_;
    std::vector<TreeNode*> roots_;
    Looks before_;
    std::uint64_t lastSerial_ = 0;
    TreeNode* selected_ = nullptr;
    TreeNode* dropHighlight_ = nullptr;
    TreeNode* editedNode_ = nullptr;
    std::wstring editText_;
    int updates_ = 0;
    bool updateTold_ = false;
    bool dragAutomatic_ = false;
    TreeViewListener* listener_ = nullptr;
};

}  // namespace blattwart
