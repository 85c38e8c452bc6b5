#include "views/basDateien.h"

#include "autocad/FileDialogsOff.h"

namespace blattwart {

basDateien::Selection basDateien::selection(bool fromList) const {
    if (fromList) {
        if (const ListItem* item = list_.selected()) return {item->key(), item->text()};
    } else if (const TreeNode* node = tree_.view().selected()) {
        return {node->key(), node->text()};
    }
    throw RuntimeError(errorNumber::elementNotFound, L"Es ist nichts ausgewählt.");
}

void basDateien::makeActive(const host::Document& document) {
    autoCAD_.activate(document);
    hooks.ShowNodeStatus();
}

std::wstring basDateien::GetSelectedDrawingFile(bool fromList) {
    return records_.DrawingRecords.Item(recordKey(selection(fromList).key))->Gesamt;
}

std::wstring basDateien::GetSelectedTemplateFile(bool fromList) {
    std::wstring file;
    ignoringErrors([&] { file = records_.TemplateRecords.Item(recordKey(selection(fromList).key))->Gesamt; });
    return file;
}

void basDateien::ActivateSelection(bool isLayout, bool askFirst, bool fromList) {
    ignoringErrors([&] {
        // With the root selected the list shows drawings, otherwise layouts.
        const bool rootSelected = tree_.selectedKind() == L"A";
        const Selection chosen = selection(fromList || rootSelected);
        const bool wantsLayout = isLayout || (fromList && !rootSelected);
        const auto& records = wantsLayout ? records_.LayoutRecords : records_.DrawingRecords;
        const auto record = records.Item(recordKey(chosen.key));
        const std::size_t end = wantsLayout ? record->Gesamt.find(L';') : std::wstring::npos;
        if (isLayout && end == std::wstring::npos) return;
        // The marks move also when the user does not want to leave the active drawing; required so.
        if (switchDrawing(record->Gesamt.substr(0, end), chosen, isLayout, askFirst) && wantsLayout)
            switchLayout(record->Layout);
        markActivated();
    });
}

// Returns whether the drawing is the active one now: the user may stay with another, or it is closed.
bool basDateien::switchDrawing(const std::wstring& drawing, const Selection& chosen, bool isLayout,
                               bool askFirst) {
    if (platform_.locale.equalIgnoringCase(drawing, autoCAD_.GetActiveDrawingName())) return true;
    if (askFirst && !platform_.messages.ask(chosen.text + L" zum aktiven Dokument machen?")) return false;
    if (tree_.selectedKind() == L"Z" && !isLayout) tree_.view().selected()->setExpanded(true);
    const auto documents = autoCAD_.documentsNamed(drawing);
    for (const host::Document& document : documents) makeActive(document);
    return !documents.empty();
}

void basDateien::switchLayout(const std::wstring& layout) {
    const host::Document& document = autoCAD_.gAcadDoc;
    if (platform_.locale.equalIgnoringCase(document.ActiveLayout().Name(), layout)) return;
    document.putActiveLayout(document.Layouts().Item(layout));
}

void basDateien::markActivated() {
    ClearListBold();
    tree_.ClearActiveMarks();
    TreeNode* node = tree_.view().selected();
    if (node && node->key() != L"A") {
        node->setBold(true);
    } else if (ListItem* item = list_.selected()) {
        item->setBold(true);
    }
}

void basDateien::ClearListBold() {
    const Update update(list_);
    for (int row = 0; row < list_.count(); ++row) list_.row(row).setBold(false);
}

void basDateien::OpenSelectedNode(bool flag) {
    const std::wstring kind = tree_.selectedKind();
    if (kind == L"Z") ActivateSelection(false, true, !flag);
    if (kind == L"L") ActivateSelection(true, true, false);
    if (kind == L"D") OpenTemplate(true);
}

void basDateien::open(const std::wstring& file) {
    try {
        autoCAD_.gAcadDoc = autoCAD_.gAcadApp.Documents().Open(file);
    } catch (const RuntimeError& error) {
        platform_.messages.warn(file + L" kann nicht geöffnet werden!\n\n" + error.description());
    }
}

void basDateien::OpenTemplate(bool askFirst) {
    ignoringErrors([&] {
        const Selection chosen = selection(tree_.selectedKind() == L"B");
        const std::wstring file = records_.TemplateRecords.Item(recordKey(chosen.key))->Gesamt;
        if (autoCAD_.documentsNamed(file).empty()) {
            if (!askFirst || platform_.messages.ask(chosen.text + L" öffnen?")) open(file);
        } else if (!askFirst) {
            platform_.messages.inform(chosen.text + L" ist bereits geladen!");
        }
        hooks.RefreshTree();
    });
}

void basDateien::CloseDrawing() {
    ignoringErrors([&] {
        const auto documents = autoCAD_.documentsNamed(GetSelectedDrawingFile(tree_.selectedKind() == L"A"));
        // A drawing that is closed already must not cost another one its document.
        if (documents.empty()) return;
        makeActive(documents.back());
        autoCAD_.BringAutoCADToFront();
        autoCAD_.typeCommand(autoCAD_.gAcadDoc, {L"_Close"});
    });
}

void basDateien::SaveDrawing(bool saveAs) {
    ignoringErrors([&] {
        const bool fromList = tree_.selectedKind() == L"A";
        const auto documents = autoCAD_.documentsNamed(GetSelectedDrawingFile(fromList));
        if (documents.empty()) return;
        const host::Document& document = documents.back();
        if (saveAs) {
            makeActive(document);
            autoCAD_.BringAutoCADToFront();
            autoCAD_.typeCommand(document, {L"_saveas"});
            return;
        }
        const std::wstring text = selection(fromList).text;
        if (!platform_.messages.ask(text + L" speichern?")) return;
        try {
            document.Save();
        } catch (const RuntimeError& error) {
            platform_.messages.reportError(text + L" konnte nicht gespeichert werden!\n\n" +
                                           error.description());
        }
    });
}

void basDateien::InsertLayoutFromTemplate() {
    const std::wstring file = GetSelectedTemplateFile(tree_.selectedKind() == L"B");
    if (file.empty() || !autoCAD_.gAcadDoc) return;
    ignoringErrors([&] {
        const FileDialogsOff fileDialogsOff(autoCAD_, autoCAD_.gAcadDoc);
        autoCAD_.BringAutoCADToFront();
        autoCAD_.typeCommand(autoCAD_.gAcadDoc, {L"layout", L"vorlage", file});
    });
}

bool basDateien::OpenDroppedFile(const std::wstring& file) {
    const std::wstring upper = platform_.locale.upperCase(file);
    if (!upper.ends_with(L"DXF") && !upper.ends_with(L"DWG") && !upper.ends_with(L"DWT")) return false;
    // The records are asked, not the host: a drawing once listed counts as loaded, even closed. Required so.
    for (const auto& record : records_.DrawingRecords) {
        if (platform_.locale.upperCase(record->Gesamt) != upper) continue;
        platform_.messages.inform(record->Gesamt + L" ist bereits geladen!");
        return false;
    }
    open(file);
    return true;
}

void basDateien::SwitchToModelSpace() {
    ignoringErrors([&] {
        const std::wstring drawing = GetSelectedDrawingFile(tree_.selectedKind() == L"A");
        for (const host::Document& document : autoCAD_.documentsNamed(drawing))
            ignoringErrors([&] { document.putActiveSpace(host::Space::model); });
        hooks.RefreshTree();
    });
}

}  // namespace blattwart
