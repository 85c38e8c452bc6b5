#include "views/basViewControls.h"

#include <algorithm>

namespace blattwart {

basViewControls::basViewControls(TreeView& treeView, ListView& list, Label& listTitle, PictureBox& picture,
                                 const NavigatorContext& context)
    : tree(treeView, context.records, context.platform.locale),
      columns(list, listTitle, context.platform),
      list_(list),
      autoCAD_(context.autoCAD),
      database_(context.database),
      drawings_(tree, context),
      templates_(tree, context),
      contents_(treeView, list, context),
      pictures_(picture, context.platform),
      records_(context.records),
      platform_(context.platform),
      events_(context.events) {}

void basViewControls::RefreshTree() {
    const basAutoCAD::OneLook look(autoCAD_);
    // Start-up itself fills the list when the tree stands; reading the host twice would show nothing else.
    const bool startUp = !tree.TreeInitialised;
    readTree(Reading::update);
    showAround(!startUp);
}

void basViewControls::RebuildTree() {
    const basAutoCAD::OneLook look(autoCAD_);
    const TreeNode* selected = tree.view().selected();
    const std::wstring before = selected ? nameOf(*selected) : L"";
    readTree(Reading::anew);
    TreeNode* same = nullptr;
    tree.view().forEach([&](TreeNode& node) {
        if (!same && nameOf(node) == before) same = &node;
    });
    if (same) tree.view().select(*same);
    showAround(true);
}

void basViewControls::dropHost() {
    const Update update(tree.view());
    drawings_.RemoveDrawingNodes();
    templates_.RemoveTemplateNodes();
    records_.TemplateFolder.clear();
}

void basViewControls::readTree(Reading reading) {
    const bool databaseAnswers = readDatabase();
    std::vector<std::wstring> failures;
    {
        const Update update(tree.view());
        tree.resetDrawingsRoot();
        tree.showAttached(static_cast<bool>(autoCAD_.gAcadApp));
        if (!autoCAD_.gAcadApp || (reading == Reading::anew && answers())) drawings_.RemoveDrawingNodes();
        if (autoCAD_.gAcadApp) failures.push_back(drawings_.ReadLoadedDrawings());
        tree.resetLibraryRoot();
        failures.push_back(templates_.ReadTemplateFolder(reading));
        // The running number decides, not the number of templates: once anything was numbered, the library
        // keeps its look. Intended.
        if (records_.LastNumber == 0) tree.showLibraryEmpty();
        tree.TreeInitialised = -1;
    }
    const bool libraryAnswers = databaseAnswers && templates_.answered();
    events_.showNote(libraryAnswers ? drawings_.missingNodes()
                                    : L"Bibliothek antwortet nicht: letzter Stand");
    // Not before: a tree that is being changed is not painted.
    for (const std::wstring& failure : failures)
        if (!failure.empty()) platform_.messages.reportError(failure);
}

/// The look is the one of the reading that follows: it costs nothing more.
bool basViewControls::answers() const {
    return !autoCAD_.gAcadDoc || ignoringErrors([this] { autoCAD_.openDocuments(); });
}

bool basViewControls::readDatabase() {
    const std::wstring file = database_.file();
    // The library is asked for at the same time, so that one second is waited for both.
    const auto silent = platform_.files.silent({file, records_.TemplateFolder});
    if (std::ranges::find(silent, file) != silent.end()) return false;
    database_.LoadTypes();
    database_.LoadBlocks();
    return true;
}

void basViewControls::showAround(bool fillList) {
    events_.setDragMode();
    events_.ShowNodeStatus();
    if (fillList) showSelectedNode();
    events_.VisbibleMnuMenu();
}

std::wstring basViewControls::nameOf(const TreeNode& node) const {
    const NodeKey key = NodeKey::parse(node.key());
    std::wstring name;
    ignoringErrors([&] {
        if (key.kind() == NodeKind::drawing) name = records_.DrawingRecords.Item(key)->Gesamt;
        if (key.kind() == NodeKind::layout) name = records_.LayoutRecords.Item(key)->Gesamt;
        if (key.kind() == NodeKind::libraryFile) name = records_.TemplateRecords.Item(key)->Gesamt;
    });
    return kindLetter(key.kind()) + platform_.locale.upperCase(name);
}

void basViewControls::SelectListColumns() {
    const ListKind kind = listKindOf(tree.selectedKey().kind());
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
    const NodeKind kind = tree.selectedKey().kind();
    const std::wstring letter = kindLetter(kind);
    const bool kindChanged = letter != tree.CurrentNodeKind;
    const bool filled = node->key() == freshlyFilled_;
    freshlyFilled_.clear();

    if (kindChanged && !filled) list_.clear();
    if (kind != NodeKind::layout) {
        list_.setSorted(true);
    } else if (kindChanged) {
        list_.setSorted(false);
    }
    if (!filled) fill(listKindOf(kind));
    if (kindChanged) columns.RestoreColumnOrder(letter);
    tree.CurrentNodeKind = letter;
}

void basViewControls::showSelectedNode() {
    const Update update(list_);
    SelectListColumns();
    FillListForNode();
    pictures_.show(selectedTemplate());
}

std::wstring basViewControls::selectedTemplate() const {
    const NodeKey key = tree.selectedKey();
    std::wstring file;
    if (key.kind() == NodeKind::libraryFile)
        ignoringErrors([&] { file = records_.TemplateRecords.Item(key)->Gesamt; });
    return file;
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
