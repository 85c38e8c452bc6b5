// What the user does in tree and list, led to the navigator's operations.

#include <utility>

#include "shell/frmMain.h"
#include "shell/Modules.h"

namespace blattwart {

void frmMain::connectEvents() {
    tvTreeView.events = {
        .nodeClick = [this](TreeNode&) { handle([this] { tvTreeView_NodeClick(); }); },
        .doubleClick = [this] { handle([this] { modules_->files.OpenSelectedNode(true); }); },
        .contextMenu = [this] { popUpContextMenu(tvTreeView); },
        .afterLabelEdit =
            [this](const std::wstring& text) { handle([&] { tvTreeView_AfterLabelEdit(text); }); },
        .labelEditCancelled = [this] { handle([this] { modules_->templates.CancelNewTemplate(); }); },
        .filesDropped = [this](const auto& files) { handle([&] { tvTreeView_FilesDropped(files); }); },
        .keyDropped = [this](const std::wstring& key) { handle([&] { tvTreeView_KeyDropped(key); }); }};
    lvListView.events = {
        .doubleClick = [this] { handle([this] { OpenListItem(); }); },
        .contextMenu =
            [this] {
                if (!listShowsDetails()) popUpContextMenu(lvListView);
            },
        // Only the drawing selected among several decides anything.
        .selectionChange =
            [this] {
                if (selectedKind() == NodeKind::loadedDrawings) handle([this] { VisbibleMnuMenu(); });
            },
        .columnClick = [this](int column) { lvListView_ColumnClick(column); },
        .afterLabelEdit =
            [this](const std::wstring& text) { handle([&] { lvListView_AfterLabelEdit(text); }); }};
}

void frmMain::tvTreeView_NodeClick() {
    const basAutoCAD::OneLook look(modules_->autoCAD);
    setDragMode();
    modules_->templates.CancelNewTemplate();
    SetTreeViewViewBySetting();
    modules_->views.showSelectedNode();
    showStateOfSelection();
}

void frmMain::showStateOfSelection() {
    modules_->events.ShowNodeStatus();
    VisbibleMnuMenu();
}

void frmMain::setDragMode() {
    const NodeKind kind = selectedKind();
    tvTreeView.setDragAutomatic(kind != NodeKind::loadedDrawings && kind != NodeKind::library);
}

void frmMain::tvTreeView_AfterLabelEdit(const std::wstring& newText) {
    const LabelEdit meaning = std::exchange(labelEdit_, LabelEdit::none);
    if (modules_->general.CheckInvalidChars(newText)) {
        modules_->templates.CancelNewTemplate();
        return;
    }
    if (meaning == LabelEdit::newTemplate) {
        modules_->templates.CreateTemplateFromLayout(newText);
        showStateOfSelection();
    }
    if (meaning == LabelEdit::renameLayout) modules_->layouts.RenameByLabelEdit(false, newText);
}

void frmMain::lvListView_AfterLabelEdit(const std::wstring& newText) {
    modules_->layouts.RenameByLabelEdit(true, newText);
}

void frmMain::lvListView_ColumnClick(int column) {
    const int sortKey = column - 1;
    if (sortKey == lvListView.sortKey()) {
        const bool ascending = lvListView.sortOrder() == SortOrder::ascending;
        lvListView.setSortOrder(ascending ? SortOrder::descending : SortOrder::ascending);
    }
    lvListView.setSortKey(sortKey);
    lvListView.setSorted(true);
}

bool frmMain::listShowsDetails() const {
    const NodeKind kind = selectedKind();
    return kind == NodeKind::layout || kind == NodeKind::libraryFile;
}

void frmMain::popUpContextMenu(const Control& opener) {
    handle([&] {
        VisbibleMnuMenu();
        const NodeKind kind = selectedKind();
        if (kind == NodeKind::none) return;
        MenuItem& menu = kind == NodeKind::library || kind == NodeKind::libraryFile ? popupTemplateMenu
                         : kind == NodeKind::layout                                 ? popupLayoutMenu
                                                                                    : popupDrawingMenu;
        // A double click in the list, or on a root, only moves in the tree.
        menu.items().front()->setDefault(&opener == &tvTreeView && kind != NodeKind::loadedDrawings &&
                                         kind != NodeKind::library);
        window_->popUpMenu(menu);
    });
}

void frmMain::OpenListItem() {
    const ListItem* entry = lvListView.selected();
    if (!entry) return;
    TreeNode* node = tvTreeView.find(entry->key());
    const NodeKind kind = NodeKey::parse(entry->key()).kind();
    if (!node || (kind != NodeKind::loadedDrawings && kind != NodeKind::library && kind != NodeKind::drawing))
        return;
    const basAutoCAD::OneLook look(modules_->autoCAD);
    tvTreeView.select(*node);
    node->setExpanded(true);
    SetTreeViewViewBySetting();
    modules_->views.showSelectedNode();
    setDragMode();
    showStateOfSelection();
}

bool frmMain::isDropTarget() {
    const TreeNode* target = tvTreeView.dropHighlight();
    if (!target) return false;
    if (NodeKey::parse(target->key()).isRoot()) return true;
    platform_.messages.warn(L"Objekte können nur in die Bibliothek eingefügt oder geladen werden!");
    return false;
}

void frmMain::tvTreeView_FilesDropped(const std::vector<std::wstring>& files) {
    if (!isDropTarget() || !modules_->autoCAD.gAcadApp) return;
    if (NodeKey::parse(tvTreeView.dropHighlight()->key()).kind() != NodeKind::loadedDrawings) return;
    // A host that does not answer is told once, not for each file.
    for (const std::wstring& file : files)
        if (!modules_->files.OpenDroppedFile(file)) break;
    modules_->views.RefreshTree();
}

void frmMain::tvTreeView_KeyDropped(const std::wstring& key) {
    if (!isDropTarget()) return;
    const NodeKind target = NodeKey::parse(tvTreeView.dropHighlight()->key()).kind();
    const NodeKind dragged = NodeKey::parse(key).kind();
    const bool isNode = tvTreeView.selected() && tvTreeView.selected()->key() == key;
    const bool isEntry = lvListView.selected() && lvListView.selected()->key() == key;
    if (isNode && dragged == NodeKind::libraryFile && target == NodeKind::loadedDrawings) mnuTemplate_Click();
    if ((isNode || isEntry) && dragged == NodeKind::layout && target == NodeKind::library)
        mnuLayoutImport_Click();
}

}  // namespace blattwart
