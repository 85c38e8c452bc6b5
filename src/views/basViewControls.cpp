#include "views/basViewControls.h"

namespace blattwart {

basViewControls::basViewControls(TreeView& treeView, ListView& list, Label& listTitle, basAutoCAD& autoCAD,
                                 basDatenbank& database, NavigatorRecords& records, Platform& platform)
    : tree(treeView, records, platform.locale),
      columns(list, listTitle, platform),
      list_(list),
      autoCAD_(autoCAD),
      database_(database),
      drawings_(tree, records, autoCAD, platform.messages, platform.locale),
      templates_(tree, records, database, platform),
      contents_(treeView, list, autoCAD, database, records, platform),
      records_(records) {}

void basViewControls::RefreshTree() {
    database_.LoadTypes();
    database_.LoadBlocks();

    const Update update(tree.view());
    tree.resetDrawingsRoot();
    tree.showAttached(static_cast<bool>(autoCAD_.gAcadApp));
    if (autoCAD_.gAcadApp) {
        drawings_.ReadLoadedDrawings();
    } else {
        drawings_.RemoveDrawingNodes();
    }
    tree.resetLibraryRoot();
    templates_.ReadTemplateFolder();
    // The running number decides, not the number of templates: once anything was numbered, the library keeps its
    // look. Intended.
    if (records_.LastNumber == 0) tree.showLibraryEmpty();
    tree.TreeInitialised = -1;

    hooks.setDragMode();
    hooks.ShowNodeStatus();
    showSelectedNode();
    hooks.VisbibleMnuMenu();
}

void basViewControls::SelectListColumns() {
    const ListKind kind = listKindOf(tree.selectedKind());
    if (kind == ListKind::none || kind == columns.ListMode) return;
    columns.leave();
    list_.clear();
    SetListColumns(kind);
}

void basViewControls::SetListColumns(ListKind kind) {
    columns.setHeaders(kind);
    fill(kind);
    freshlyFilled_ = tree.view().selected()->key();
}

void basViewControls::FillListForNode() {
    const TreeNode* node = tree.view().selected();
    if (!node) return;
    const std::wstring kind = tree.selectedKind();
    const bool kindChanged = kind != tree.CurrentNodeKind;
    const bool filled = node->key() == freshlyFilled_;
    freshlyFilled_.clear();

    if (kindChanged && !filled) list_.clear();
    if (kind != L"L") {
        list_.setSorted(true);
    } else if (kindChanged) {
        list_.setSorted(false);
    }
    if (!filled) fill(listKindOf(kind));
    if (kindChanged) columns.RestoreColumnOrder(kind);
    tree.CurrentNodeKind = kind;
}

void basViewControls::showSelectedNode() {
    const Update update(list_);
    SelectListColumns();
    FillListForNode();
}

void basViewControls::fill(ListKind kind) {
    switch (kind) {
        case ListKind::drawings: return contents_.FillDrawingList();
        case ListKind::layouts: return contents_.FillLayoutList();
        case ListKind::layoutDetails: return contents_.FillLayoutDetails();
        case ListKind::templates: return contents_.FillTemplateList();
        case ListKind::templateDetails: return contents_.FillTemplateDetails();
        case ListKind::none: return;
    }
}

}  // namespace blattwart
