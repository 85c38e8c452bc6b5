#include "views/basViewControls.h"

namespace blattwart {

basViewControls::basViewControls(TreeView& treeView, ListView& list, Label& listTitle,
                                 const NavigatorContext& context)
    : tree(treeView, context.records, context.platform.locale),
      columns(list, listTitle, context.platform),
      list_(list),
      autoCAD_(context.autoCAD),
      database_(context.database),
      drawings_(tree, context),
      templates_(tree, context),
      contents_(treeView, list, context),
      records_(context.records),
      events_(context.events) {}

void basViewControls::RefreshTree() {
    database_.LoadTypes();
    database_.LoadBlocks();

    const basAutoCAD::OneLook look(autoCAD_);
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
    // The running number decides, not the number of templates: once anything was numbered, the library keeps
    // its look. Intended.
    if (records_.LastNumber == 0) tree.showLibraryEmpty();
    const bool startUp = !tree.TreeInitialised;
    tree.TreeInitialised = -1;

    events_.setDragMode();
    events_.ShowNodeStatus();
    // Start-up itself fills the list when the tree stands; reading the host twice would show nothing else.
    if (!startUp) showSelectedNode();
    events_.VisbibleMnuMenu();
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
        case ListKind::drawings:
            return contents_.FillDrawingList();
        case ListKind::layouts:
            return contents_.FillLayoutList();
        case ListKind::layoutDetails:
            return contents_.FillLayoutDetails();
        case ListKind::templates:
            return contents_.FillTemplateList();
        case ListKind::templateDetails:
            return contents_.FillTemplateDetails();
        case ListKind::none:
            return;
    }
}

}  // namespace blattwart
