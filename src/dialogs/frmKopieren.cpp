#include "dialogs/frmKopieren.h"

namespace blattwart {

frmKopieren::frmKopieren(const LayoutDialogContext& context, basTarvix& tarvix)
    : LayoutDialog(context), tarvix_(tarvix) {
    lblNeuL.setText(L"&Neues Layout:");
    lblAnzahl.setText(L"&Anzahl der Kopien:");
}

bool frmKopieren::Form_Load() {
    const TreeNode& node = *selectedNode();
    std::wstring source = node.text();
    if (NodeKey::parse(node.key()).kind() == NodeKind::drawing) {
        const ListItem* item = context().list.selected();
        if (!item) {
            context().platform.messages.warn(
                L"Bitte wählen Sie in der Liste das Layout aus, das kopiert werden soll!");
            return false;
        }
        source = item->text();
    }
    nodeKey_ = node.key();
    takeDrawing();
    txtQuelle.setText(source);
    txtLayout.setText(L"Kopie von " + source);
    return true;
}

void frmKopieren::showHelp() {
    context().help.ShowHelpTopic(helpTopic::copyLayout);
}

bool frmKopieren::start(const std::wstring& name, std::int16_t copies) {
    std::wstring newName = name;
    if (!tarvix_.CopyLayouts(txtQuelle.text(), newName, copies)) return false;
    context().views.RefreshTree();
    updateNode();
    return true;
}

// The refresh has updated the selected node, which is the one unless it was removed meanwhile.
void frmKopieren::updateNode() {
    TreeView& tree = context().views.tree.view();
    TreeNode* node = tree.find(nodeKey_);
    if (!node || node == tree.selected()) return;
    tree.select(*node);
    context().views.showSelectedNode();
}

}  // namespace blattwart
