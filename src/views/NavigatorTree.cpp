#include "views/NavigatorTree.h"

#include "views/TreeIcons.h"

namespace blattwart {

namespace {

constexpr const wchar_t* drawingsRoot = L"A";
constexpr const wchar_t* libraryRoot = L"B";

}  // namespace

void NavigatorTree::BuildTree() {
    records_.LastNumber = 0;
    TreeInitialised = 0;
    const Update update(tree_);
    tree_.clear();
    TreeNode& drawings = tree_.add(nullptr, drawingsRoot, L"Geladene Zeichnungen", treeIcon::drawings);
    drawings.setColor(SystemColor::buttonText);
    drawings.setExpanded(true);
    tree_.select(drawings);
    tree_.add(nullptr, libraryRoot, L"Bibliothek", treeIcon::library).setExpanded(true);
}

void NavigatorTree::GetSelectedNodeKind() {
    CurrentNodeKind = selectedKind();
}

std::wstring NavigatorTree::selectedKind() const {
    const TreeNode* node = tree_.selected();
    return node ? node->key().substr(0, 1) : std::wstring();
}

void NavigatorTree::AddTreeNode(const std::wstring& text, bool isTemplate, bool isActive,
                                std::int32_t parentNumber) {
    const std::wstring number = std::to_wstring(records_.LastNumber);
    if (isTemplate) {
        const bool dwt = locale_.upperCase(text).ends_with(L"DWT");
        if (TreeNode* library = tree_.find(libraryRoot))
            tree_.add(library, L"D" + number, text, dwt ? treeIcon::dwt : treeIcon::dwg,
                      dwt ? treeIcon::dwtSelected : treeIcon::dwgSelected);
        return;
    }
    const bool isLayout = parentNumber != 0;
    TreeNode* parent = tree_.find(isLayout ? L"Z" + std::to_wstring(parentNumber) : drawingsRoot);
    if (!parent) return;
    TreeNode& node =
        isLayout ? tree_.add(parent, L"L" + number, text, treeIcon::layout, treeIcon::layoutSelected)
                 : tree_.add(parent, L"Z" + number, text, treeIcon::drawing, treeIcon::drawingSelected);
    if (!isActive) return;
    node.setBold(true);
    if (!isLayout) node.setExpanded(true);
    if (!TreeInitialised) tree_.select(node);
}

void NavigatorTree::MarkNodeActive(const std::wstring& key) {
    TreeNode* node = tree_.find(key);
    if (!node) return;
    if (!TreeInitialised) tree_.select(*node);
    node->setBold(true);
}

void NavigatorTree::ClearActiveMarks() {
    const Update update(tree_);
    tree_.forEach([](TreeNode& node) {
        if (node.key() != drawingsRoot) node.setBold(false);
    });
}

void NavigatorTree::removeNode(const std::wstring& key) {
    if (tree_.find(key)) tree_.remove(key);
}

void NavigatorTree::resetDrawingsRoot() {
    TreeNode* root = tree_.find(drawingsRoot);
    if (!root) return;
    root->setColor(SystemColor::buttonText);
    root->setImage(treeIcon::drawings);
    root->setExpanded(true);
    if (!TreeInitialised) tree_.select(*root);
}

void NavigatorTree::showAttached(bool attached) {
    TreeNode* root = tree_.find(drawingsRoot);
    if (!root) return;
    root->setText(attached ? L"Geladene Zeichnungen" : L"AutoCAD nicht aktiv!");
    root->setColor(attached ? SystemColor::buttonText : SystemColor::appWorkspace);
    root->setImage(attached ? treeIcon::drawings : treeIcon::notAttached);
    root->setBold(attached);
}

void NavigatorTree::resetLibraryRoot() {
    TreeNode* root = tree_.find(libraryRoot);
    if (!root) return;
    root->setImage(treeIcon::library);
    root->setExpanded(true);
    root->setColor(SystemColor::buttonText);
}

void NavigatorTree::showLibraryEmpty() {
    TreeNode* root = tree_.find(libraryRoot);
    if (!root) return;
    root->setText(L"Keine Vorlagen vorhanden!");
    root->setColor(SystemColor::appWorkspace);
    root->setImage(treeIcon::libraryEmpty);
    root->setBold(false);
}

}  // namespace blattwart
