#include "views/TemplateCreation.h"

#include <algorithm>

#include "views/TreeIcons.h"

namespace blattwart {

namespace {

const NodeKey placeholder(NodeKind::libraryFile);

}  // namespace

void TemplateCreation::BeginNewTemplate() {
    CancelNewTemplate();
    TreeView& tree = tree_.view();
    const NodeKind kind = tree_.selectedKey().kind();
    const ListItem* item = list_.selected();
    if (kind == NodeKind::drawing && !item)
        events_.showHint(L"Bitte zuerst in der Liste ein Layout auswählen.");
    if (kind != NodeKind::layout && !(kind == NodeKind::drawing && item)) return;
    TreeNode* library = tree_.find(NodeKey(NodeKind::library));
    if (!library) return;
    sourceKey_ = tree.selected()->key();
    sourceLayout_ = kind == NodeKind::drawing ? item->text() : tree.selected()->text();

    tree.select(tree.add(library, placeholder.text(), L"", treeIcon::dwtSelected, treeIcon::dwtSelected));
    pending_ = true;
    tree.startLabelEdit(sourceLayout_);
}

void TemplateCreation::CancelNewTemplate() {
    if (!pending_) return;
    pending_ = false;
    TreeView& tree = tree_.view();
    TreeNode* source = tree.find(sourceKey_);
    // The list still shows the source; unless the user has gone elsewhere, he is back there.
    if (source && tree.selected()->key() == placeholder.text()) tree.select(*source);
    tree_.removeNode(placeholder);
}

void TemplateCreation::CreateTemplateFromLayout(const std::wstring& newName) {
    bool created = false;
    if (isAcceptable(newName)) ignoringErrors([&] { created = saveLayoutAs(newName + L".dwt"); });
    if (!created) CancelNewTemplate();
    if (autoCAD_.gAcadDoc) autoCAD_.borrowed.switchFileDialogsOn(autoCAD_.gAcadDoc);
}

bool TemplateCreation::isAcceptable(const std::wstring& newName) {
    if (newName.empty()) {
        platform_.messages.warn(L"Bezeichnung der neuen Vorlage eingeben!");
        return false;
    }
    const std::wstring file = newName + L".dwt";
    const bool listed = std::ranges::any_of(records_.TemplateRecords, [&](const auto& record) {
        return platform_.locale.equalIgnoringCase(record->Datei, file);
    });
    // A file not listed yet would leave the host waiting for an answer to its own question.
    if (listed || platform_.files.exists(records_.TemplateFolder + L"\\" + file)) {
        platform_.messages.warn(L"Vorlage bereits vorhanden!");
        return false;
    }
    return true;
}

// Returns false when there is nothing to save or nothing was typed into the host.
bool TemplateCreation::saveLayoutAs(const std::wstring& file) {
    if (records_.TemplateFolder.empty()) {
        // The host would write to the drive's root.
        events_.showHint(L"Es ist kein Vorlagenordner bekannt: Es wurde keine Vorlage angelegt.");
        return false;
    }
    std::wstring drawingKey = sourceKey_;
    if (NodeKey::parse(sourceKey_).kind() != NodeKind::drawing) {
        const TreeNode& layout = tree_.view().node(sourceKey_);
        drawingKey = layout.parent()->key();
        sourceLayout_ = layout.text();
    }
    const host::Document document = autoCAD_.GetDocumentByKey(drawingKey);
    if (!document) return false;
    autoCAD_.activate(document);
    markActive(drawingKey, document);

    const std::wstring path = records_.TemplateFolder + L"\\" + file;
    autoCAD_.borrowed.switchFileDialogsOff(document);
    if (!autoCAD_.typeCommand(document, TypedCommand::saveLayoutAsTemplate, {sourceLayout_, path}))
        return false;

    records_.countNext();
    auto record = std::make_shared<CVorlage>();
    record->Datei = file;
    record->Gesamt = path;
    record->Vorhanden = present;
    record->Nummer = records_.LastNumber;
    records_.TemplateRecords.add(record);

    TreeNode& node = tree_.view().node(placeholder.text());
    node.setText(file);
    node.setImage(treeIcon::dwt);
    node.setKey(NodeKey(NodeKind::libraryFile, record->Nummer).text());
    pending_ = false;
    events_.showSelectedNode();
    return true;
}

// A refresh would read the folder too, in which the new file may not be seen yet.
void TemplateCreation::markActive(const std::wstring& drawingKey, const host::Document& document) {
    const TreeNode* drawing = tree_.view().find(drawingKey);
    if (!drawing || drawing->bold()) return;
    tree_.ClearActiveMarks();
    tree_.MarkNodeActive(NodeKey::parse(drawingKey));
    ignoringErrors([&] {
        const std::wstring layout = document.ActiveLayout().Name();
        for (const auto& node : drawing->children())
            if (node->text() == layout) tree_.MarkNodeActive(NodeKey::parse(node->key()));
    });
}

void TemplateCreation::DeleteTemplate() {
    NodeKey key = tree_.selectedKey();
    if (key.kind() == NodeKind::library) {
        const ListItem* item = list_.selected();
        key = item ? NodeKey::parse(item->key()) : NodeKey();
    }
    if (key.kind() != NodeKind::libraryFile) return;
    std::shared_ptr<CVorlage> record;
    ignoringErrors([&] { record = records_.TemplateRecords.Item(key); });
    const auto failure = [this](const std::wstring& reason) {
        events_.showHint(L"Die Datei kann nicht gelöscht werden: " + reason);
    };
    if (record && general_.DateiLoeschen(record->Gesamt, failure)) events_.RefreshTree();
}

}  // namespace blattwart
