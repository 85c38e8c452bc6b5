#include "views/NavigatorTree.h"

#include "views/TreeIcons.h"

namespace blattwart {

namespace {

const NodeKey drawingsRoot(NodeKind::loadedDrawings);
const NodeKey libraryRoot(NodeKind::library);

}  // namespace

void NavigatorTree::BuildTree() {
    records_.LastNumber = 0;
    TreeInitialised = 0;
    const Update update(tree_);
    tree_.clear();
    TreeNode& drawings = tree_.add(nullptr, drawingsRoot.text(), L"Geladene Zeichnungen", treeIcon::drawings);
    drawings.setColor(SystemColor::buttonText);
    drawings.setExpanded(true);
    tree_.select(drawings);
    tree_.add(nullptr, libraryRoot.text(), L"Bibliothek", treeIcon::library).setExpanded(true);
}

void NavigatorTree::GetSelectedNodeKind() {
    CurrentNodeKind = kindLetter(selectedKey().kind());
}

NodeKey NavigatorTree::selectedKey() const {
    const TreeNode* node = tree_.selected();
    return node ? NodeKey::parse(node->key()) : NodeKey();
}

void NavigatorTree::AddTreeNode(const std::wstring& text, bool isTemplate, bool isActive,
                                std::int32_t parentNumber) {
    const auto key = [this](NodeKind kind) { return NodeKey(kind, records_.LastNumber).text(); };
    if (isTemplate) {
        const bool dwt = locale_.upperCase(text).ends_with(L"DWT");
        if (TreeNode* library = find(libraryRoot))
            tree_.add(library, key(NodeKind::libraryFile), text, dwt ? treeIcon::dwt : treeIcon::dwg,
                      dwt ? treeIcon::dwtSelected : treeIcon::dwgSelected);
        return;
    }
    const bool isLayout = parentNumber != 0;
    TreeNode* parent = find(isLayout ? NodeKey(NodeKind::drawing, parentNumber) : drawingsRoot);
    if (!parent) return;
    TreeNode& node =
        isLayout
            ? tree_.add(parent, key(NodeKind::layout), text, treeIcon::layout, treeIcon::layoutSelected)
            : tree_.add(parent, key(NodeKind::drawing), text, treeIcon::drawing, treeIcon::drawingSelected);
    if (!isActive) return;
    node.setBold(true);
    if (!isLayout) node.setExpanded(true);
    if (!TreeInitialised) tree_.select(node);
}

void NavigatorTree::MarkNodeActive(const NodeKey& key) {
    TreeNode* node = find(key);
    if (!node) return;
    if (!TreeInitialised) tree_.select(*node);
    node->setBold(true);
}

void NavigatorTree::ClearActiveMarks() {
    const Update update(tree_);
    tree_.forEach([](TreeNode& node) {
        if (node.key() != drawingsRoot.text()) node.setBold(false);
    });
}

void NavigatorTree::removeNode(const NodeKey& key) {
    if (find(key)) tree_.remove(key.text());
}

void NavigatorTree::resetDrawingsRoot() {
    TreeNode* root = find(drawingsRoot);
    if (!root) return;
    root->setColor(SystemColor::buttonText);
    root->setImage(treeIcon::drawings);
    root->setExpanded(true);
    if (!TreeInitialised) tree_.select(*root);
}

void NavigatorTree::showAttached(bool attached) {
    TreeNode* root = find(drawingsRoot);
    if (!root) return;
    root->setText(attached ? L"Geladene Zeichnungen" : L"AutoCAD nicht aktiv!");
    root->setColor(attached ? SystemColor::buttonText : SystemColor::appWorkspace);
    root->setImage(attached ? treeIcon::drawings : treeIcon::notAttached);
    root->setBold(attached);
}

void NavigatorTree::resetLibraryRoot() {
    TreeNode* root = find(libraryRoot);
    if (!root) return;
    root->setImage(treeIcon::library);
    root->setExpanded(true);
    root->setColor(SystemColor::buttonText);
}

void NavigatorTree::showLibraryEmpty() {
    TreeNode* root = find(libraryRoot);
    if (!root) return;
    root->setText(L"Keine Vorlagen vorhanden!");
    root->setColor(SystemColor::appWorkspace);
    root->setImage(treeIcon::libraryEmpty);
    root->setBold(false);
}

}  // namespace blattwart
