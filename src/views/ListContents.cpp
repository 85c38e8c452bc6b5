#include "views/ListContents.h"

#include "views/ListIcons.h"
#include "views/PlotTexts.h"

namespace blattwart {

ListContents::ListContents(TreeView& tree, ListView& list, const NavigatorContext& context)
    : tree_(tree),
      list_(list),
      autoCAD_(context.autoCAD),
      records_(context.records),
      platform_(context.platform),
      details_(tree, list, context) {}

void ListContents::addChildren(const TreeNode& parent, int icon) {
    for (const auto& node : parent.children()) {
        ListItem& item = list_.add(node->key(), node->text(), icon);
        item.setBold(node->bold());
    }
}

void ListContents::FillDrawingList() {
    const Update update(list_);
    list_.clear();
    if (const TreeNode* root = tree_.find(kindLetter(NodeKind::loadedDrawings)))
        addChildren(*root, listIcon::drawing);
}

void ListContents::FillLayoutList() {
    const TreeNode* drawing = tree_.selected();
    const Update update(list_);
    list_.clear();
    addChildren(*drawing, listIcon::layout);

    const host::Document document = autoCAD_.GetDocumentByKey(drawing->key());
    host::Layouts layouts;
    ignoringErrors([&] { layouts = document.Layouts(); });
    if (!layouts) return;
    LongRead reading(platform_.readings);
    for (const auto& node : drawing->children()) {
        if (!reading.goOn()) return;
        ListItem& item = *list_.find(node->key());
        host::Layout layout;
        ignoringErrors([&] { layout = layouts.Item(item.text()); });
        if (!layout) continue;
        ignoringErrors([&] { item.setColumn(2, layout.ConfigName()); });
        item.setColumn(3, paperFormat(layout));
        ignoringErrors([&] { item.setColumn(4, orientationText(layout.PlotRotation())); });
        ignoringErrors([&] { item.setColumn(5, plotStyleText(layout.StyleSheet())); });
    }
}

void ListContents::FillLayoutDetails() {
    details_.FillLayoutDetails();
}

void ListContents::FillTemplateList() {
    const Update update(list_);
    list_.clear();
    const TreeNode* library = tree_.find(kindLetter(NodeKind::library));
    if (!library) return;
    for (const auto& node : library->children()) list_.add(node->key(), node->text(), listIcon::dwt);
}

void ListContents::FillTemplateDetails() {
    const Update update(list_);
    if (!list_.find(L"IDateiname")) {
        list_.clear();
        list_.add(L"IDateiname", L"Dateiname", listIcon::detail);
        list_.add(L"IOrdner", L"Ordner", listIcon::detail);
    }
    ListItem& file = *list_.find(L"IDateiname");
    ListItem& folder = *list_.find(L"IOrdner");
    file.setColumn(2, {});
    folder.setColumn(2, {});
    ignoringErrors([&] {
        const auto record = records_.TemplateRecords.Item(NodeKey::parse(tree_.selected()->key()));
        file.setColumn(2, record->Datei);
        folder.setColumn(2, record->Gesamt.substr(0, record->Gesamt.rfind(L'\\')));
    });
}

}  // namespace blattwart
