#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/Control.h"

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
    const std::vector<std::unique_ptr<TreeNode>>& children() const { return children_; }

    void setText(std::wstring text);
    void setImage(int image);
    void setSelectedImage(int image);
    void setBold(bool bold);
    void setColor(SystemColor color);
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
    TreeNode(TreeView& tree, TreeNode* parent, std::wstring key) : tree_(tree), parent_(parent), key_(std::move(key)) {}
    template <class T>
    void change(T Look::*field, T value);

    TreeView& tree_;
    TreeNode* parent_;
    std::wstring key_;
    Look look_;
    std::vector<std::unique_ptr<TreeNode>> children_;
};

/// The window that shows a tree. Structure and selection are told when they change, looks once per update.
class TreeViewListener {
  public:
    virtual ~TreeViewListener() = default;
    virtual void updateBegun() = 0;
    virtual void updateEnded() = 0;
    virtual void nodeAdded(const TreeNode& node) = 0;   ///< appended behind its parent's last child
    virtual void nodeRemoved(const TreeNode& node) = 0; ///< with everything below it; told before it is gone
    virtual void nodeChanged(const TreeNode& node) = 0; ///< text, images, bold, colour or expansion
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
    } events;

    ~TreeView();

    /// Appends a node behind the last child of `parent` (null: behind the last root). Throws duplicate key.
    TreeNode& add(TreeNode* parent, std::wstring key, std::wstring text, int image = 0, int selectedImage = 0);
    /// Throws RuntimeError (element not found) for an unknown key.
    TreeNode& node(std::wstring_view key);
    TreeNode* find(std::wstring_view key);
    /// Removes a node and all below it. When the selection is among them, it moves to the next sibling of the
    /// removed node, else to the previous, else to the parent. Throws element not found.
    void remove(std::wstring_view key);
    void clear();
    const std::vector<std::unique_ptr<TreeNode>>& roots() const { return roots_; }
    /// Calls the visitor for every node, parents before children, in displayed order.
    void forEach(const std::function<void(TreeNode&)>& visitor);

    TreeNode* selected() const { return selected_; }
    void select(TreeNode& node);

    /// Nested brackets around a change of many nodes. Looks are compared when the outermost ends: what was changed
    /// and changed back is not told.
    void BeginUpdate();
    void EndUpdate();

    void setListener(TreeViewListener* listener) { listener_ = listener; }

    /// What the user did, reported by the window (or by a test).
    void userClicks(TreeNode& node);
    void userExpands(TreeNode& node, bool expanded);

    TreeNode* dropHighlight() const { return dropHighlight_; }
    void setDropHighlight(TreeNode* node);

    /// Label editing of the selected node; `text` stands in the field, all selected.
    void startLabelEdit(std::wstring text);
    void cancelLabelEdit();
    TreeNode* editedNode() const { return editedNode_; }
    const std::wstring& editText() const { return editText_; }
    /// The window reports the end of the edit: no text when it was cancelled.
    void userEndsLabelEdit(const std::wstring* text);

  private:
    friend class TreeNode;
    void lookWillChange(TreeNode& node);
    void lookChanged(TreeNode& node);

    std::vector<std::unique_ptr<TreeNode>> roots_;
    std::unordered_map<std::wstring, TreeNode*> byKey_;
    std::unordered_map<TreeNode*, TreeNode::Look> before_;
    TreeNode* selected_ = nullptr;
    TreeNode* dropHighlight_ = nullptr;
    TreeNode* editedNode_ = nullptr;
    std::wstring editText_;
    int updates_ = 0;
    TreeViewListener* listener_ = nullptr;
};

/// Brackets an update of a tree or list for the length of a scope.
template <class View>
class Update {
  public:
    explicit Update(View& view) : view_(view) { view_.BeginUpdate(); }
    ~Update() { view_.EndUpdate(); }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

  private:
    View& view_;
};

}  // namespace blattwart
