#include "views/TemplateCreation.h"

#include <algorithm>

#include "views/TreeIcons.h"

namespace blattwart {

namespace {

constexpr const wchar_t* placeholderKey = L"D0";

}  // namespace

void TemplateCreation::BeginNewTemplate() {
    CancelNewTemplate();
    TreeView& tree = tree_.view();
    const std::wstring kind = tree_.selectedKind();
    const ListItem* item = list_.selected();
    if (kind == L"Z" && !item) events_.showHint(L"Bitte zuerst in der Liste ein Layout auswählen.");
    if (kind != L"L" && !(kind == L"Z" && item)) return;
    TreeNode* library = tree.find(L"B");
    if (!library) return;
    sourceKey_ = tree.selected()->key();
    sourceLayout_ = kind == L"Z" ? item->text() : tree.selected()->text();

    TreeNode& placeholder =
        tree.add(library, placeholderKey, L"", treeIcon::dwtSelected, treeIcon::dwtSelected);
    tree.select(placeholder);
    pending_ = true;
    tree.startLabelEdit(sourceLayout_);
}

void TemplateCreation::CancelNewTemplate() {
    if (!pending_) return;
    pending_ = false;
    TreeView& tree = tree_.view();
    TreeNode* source = tree.find(sourceKey_);
    // The list still shows the source; unless the user has gone elsewhere, he is back there.
    if (source && tree.selected()->key() == placeholderKey) tree.select(*source);
    tree_.removeNode(placeholderKey);
}

void TemplateCreation::CreateTemplateFromLayout(const std::wstring& newName) {
    bool created = false;
    if (isAcceptable(newName)) ignoringErrors([&] { created = saveLayoutAs(newName + L".dwt"); });
    if (!created) CancelNewTemplate();
    if (autoCAD_.gAcadDoc) autoCAD_.switchFileDialogsOn(autoCAD_.gAcadDoc);
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
    if (!sourceKey_.starts_with(L'Z')) {
        const TreeNode& layout = tree_.view().node(sourceKey_);
        drawingKey = layout.parent()->key();
        sourceLayout_ = layout.text();
    }
    const host::Document document = autoCAD_.GetDocumentByKey(drawingKey);
    if (!document) return false;
    autoCAD_.activate(document);
    events_.ShowNodeStatus();
    markActive(drawingKey, document);

    const std::wstring path = records_.TemplateFolder + L"\\" + file;
    document.SetVariable(L"FILEDIA", 0);
    if (!autoCAD_.typeCommand(document, TypedCommand::saveLayoutAsTemplate, {sourceLayout_, path}))
        return false;

    records_.countNext();
    auto record = std::make_shared<CVorlage>();
    record->Datei = file;
    record->Gesamt = path;
    record->Vorhanden = present;
    record->Nummer = records_.LastNumber;
    const std::wstring number = std::to_wstring(record->Nummer);
    records_.TemplateRecords.Add(record, number);

    TreeNode& node = tree_.view().node(placeholderKey);
    node.setText(file);
    node.setImage(treeIcon::dwt);
    node.setKey(L"D" + number);
    pending_ = false;
    events_.showSelectedNode();
    return true;
}

// A refresh would read the folder too, in which the new file may not be seen yet.
void TemplateCreation::markActive(const std::wstring& drawingKey, const host::Document& document) {
    const TreeNode* drawing = tree_.view().find(drawingKey);
    if (!drawing || drawing->bold()) return;
    tree_.ClearActiveMarks();
    tree_.MarkNodeActive(drawingKey);
    ignoringErrors([&] {
        const std::wstring layout = document.ActiveLayout().Name();
        for (const auto& node : drawing->children())
            if (node->text() == layout) tree_.MarkNodeActive(node->key());
    });
}

void TemplateCreation::DeleteTemplate() {
    std::wstring key;
    if (tree_.selectedKind() == L"B") {
        if (const ListItem* item = list_.selected()) key = item->key();
    } else if (const TreeNode* node = tree_.view().selected()) {
        key = node->key();
    }
    if (!key.starts_with(L'D')) return;
    std::shared_ptr<CVorlage> record;
    ignoringErrors([&] { record = records_.TemplateRecords.Item(recordKey(key)); });
    const auto failure = [this](const std::wstring& reason) {
        events_.showHint(L"Die Datei kann nicht gelöscht werden: " + reason);
    };
    if (record && general_.DateiLoeschen(record->Gesamt, failure)) events_.RefreshTree();
}

}  // namespace blattwart
