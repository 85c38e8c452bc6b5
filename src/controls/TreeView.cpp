#include "controls/TreeView.h"

#include <algorithm>

namespace blattwart {

namespace {

/// Whether the node is `top` or below it.
bool isWithin(const TreeNode* node, const TreeNode& top) {
    while (node && node != &top) node = node->parent();
    return node;
}

void visit(const std::vector<TreeNode*>& nodes, const std::function<void(TreeNode&)>& visitor) {
    for (TreeNode* node : nodes) {
        visitor(*node);
        visit(node->children(), visitor);
    }
}

}  // namespace

template <class T>
void TreeNode::change(T Look::*field, T value) {
    if (look_.*field == value) return;
    tree_.lookWillChange(*this);
    look_.*field = std::move(value);
    if (tree_.updates_ == 0) tree_.tell(&TreeViewListener::nodeChanged, *this);
}

void TreeNode::setText(std::wstring text) {
    change(&Look::text, std::move(text));
}

void TreeNode::setImage(int image) {
    change(&Look::image, image);
}

void TreeNode::setBold(bool bold) {
    change(&Look::bold, bold);
}

void TreeNode::setColor(SystemColor color) {
    change(&Look::color, color);
}

void TreeNode::setExpanded(bool expanded) {
    if (!expanded && isWithin(tree_.selected_, *this)) tree_.moveSelection(this);
    change(&Look::expanded, expanded);
}

void TreeNode::setKey(std::wstring key) {
    tree_.rename(*this, std::move(key));
}

template <class... Parameters, class... Arguments>
void TreeView::tell(void (TreeViewListener::*what)(Parameters...), Arguments&&... arguments) {
    if (!listener_) return;
    if (updates_ > 0 && !updateTold_) {
        updateTold_ = true;
        listener_->updateBegun();
    }
    (listener_->*what)(std::forward<Arguments>(arguments)...);
}

void TreeView::lookWillChange(TreeNode& node) {
    if (updates_ > 0) before_.try_emplace(&node, node.look_);
}

void TreeView::rename(TreeNode& node, std::wstring key) {
    if (key == node.key_) return;
    if (byKey_.contains(key)) throwDuplicateKey();
    auto entry = byKey_.extract(node.key_);
    entry.key() = key;
    byKey_.insert(std::move(entry));
    node.key_ = std::move(key);
}

TreeNode& TreeView::add(TreeNode* parent, std::wstring key, std::wstring text, int image, int selectedImage) {
    if (byKey_.contains(key)) throwDuplicateKey();
    auto& place = byKey_[key];
    place.reset(new TreeNode(*this, parent, std::move(key), ++lastSerial_));
    TreeNode& node = *place;
    node.look_.text = std::move(text);
    node.look_.image = image;
    node.look_.selectedImage = selectedImage;
    siblingsOf(node).push_back(&node);
    tell(&TreeViewListener::nodeAdded, node);
    return node;
}

TreeNode& TreeView::node(std::wstring_view key) {
    TreeNode* found = find(key);
    if (!found) throwElementNotFound();
    return *found;
}

TreeNode* TreeView::find(std::wstring_view key) {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second.get();
}

void TreeView::remove(std::wstring_view key) {
    TreeNode& gone = node(key);
    leave(gone, neighbourOf(gone));
    tell(&TreeViewListener::nodeRemoved, gone);
    detach(gone);
    destroy(gone);
}

void TreeView::clear() {
    cancelLabelEdit();
    setDropHighlight(nullptr);
    moveSelection(nullptr);
    while (!roots_.empty()) remove(roots_.back()->key_);
}

void TreeView::forEach(const std::function<void(TreeNode&)>& visitor) {
    visit(roots_, visitor);
}

void TreeView::select(TreeNode& node) {
    for (TreeNode* above = node.parent_; above; above = above->parent_) above->setExpanded(true);
    moveSelection(&node);
}

void TreeView::BeginUpdate() {
    ++updates_;
}

void TreeView::EndUpdate() {
    if (updates_ == 0) return;
    while (updates_ == 1 && !before_.empty()) {
        const auto first = before_.extract(before_.begin());
        if (first.key()->look_ != first.mapped()) tell(&TreeViewListener::nodeChanged, *first.key());
    }
    if (--updates_ > 0 || !std::exchange(updateTold_, false)) return;
    if (listener_) listener_->updateEnded();
}

void TreeView::setListener(TreeViewListener* listener) {
    listener_ = listener;
    updateTold_ = false;
}

void TreeView::userClicks(TreeNode& node) {
    select(node);
    if (events.nodeClick) events.nodeClick(node);
}

void TreeView::userExpands(TreeNode& node, bool expanded) {
    const bool clicks = !expanded && selected_ != &node && isWithin(selected_, node);
    node.setExpanded(expanded);
    if (clicks && events.nodeClick) events.nodeClick(node);
}

void TreeView::setDropHighlight(TreeNode* node) {
    if (dropHighlight_ == node) return;
    dropHighlight_ = node;
    tell(&TreeViewListener::dropHighlightChanged);
}

void TreeView::startLabelEdit(std::wstring text) {
    if (!selected_) throw RuntimeError(errorNumber::objectNotSet, L"Es ist kein Eintrag ausgewählt.");
    cancelLabelEdit();
    editedNode_ = selected_;
    editText_ = std::move(text);
    tell(&TreeViewListener::labelEditStarted, *editedNode_);
}

void TreeView::cancelLabelEdit() {
    if (!editedNode_) return;
    editedNode_ = nullptr;
    editText_.clear();
    tell(&TreeViewListener::labelEditCancelled);
}

void TreeView::userEndsLabelEdit(const std::wstring* text) {
    if (!editedNode_) return;
    editedNode_ = nullptr;
    editText_.clear();
    if (text && events.afterLabelEdit) events.afterLabelEdit(*text);
    if (!text && events.labelEditCancelled) events.labelEditCancelled();
}

std::vector<TreeNode*>& TreeView::siblingsOf(const TreeNode& node) {
    return node.parent_ ? node.parent_->children_ : roots_;
}

/// Where the selection goes when this node goes.
TreeNode* TreeView::neighbourOf(TreeNode& node) {
    const auto& siblings = siblingsOf(node);
    const auto place = std::lower_bound(siblings.begin(), siblings.end(), &node, BySerial());
    if (place + 1 != siblings.end()) return *(place + 1);
    return place != siblings.begin() ? *(place - 1) : node.parent_;
}

void TreeView::moveSelection(TreeNode* node) {
    if (selected_ == node) return;
    cancelLabelEdit();
    selected_ = node;
    tell(&TreeViewListener::selectionChanged);
}

/// Nothing points at the node or below it afterwards.
void TreeView::leave(TreeNode& node, TreeNode* newSelection) {
    if (isWithin(dropHighlight_, node)) setDropHighlight(nullptr);
    if (isWithin(selected_, node)) moveSelection(newSelection);
}

void TreeView::detach(TreeNode& node) {
    auto& siblings = siblingsOf(node);
    siblings.erase(std::lower_bound(siblings.begin(), siblings.end(), &node, BySerial()));
}

void TreeView::destroy(TreeNode& node) {
    for (TreeNode* child : node.children_) destroy(*child);
    before_.erase(&node);
    byKey_.erase(byKey_.find(node.key_));
}

}  // namespace blattwart
