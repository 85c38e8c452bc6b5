#include "views/basDateien.h"

#include "autocad/FileDialogsOff.h"

namespace blattwart {

basDateien::Selection basDateien::selection(bool fromList) const {
    if (fromList) {
        if (const ListItem* item = list_.selected()) return {NodeKey::parse(item->key()), item->text()};
    } else if (const TreeNode* node = tree_.view().selected()) {
        return {NodeKey::parse(node->key()), node->text()};
    }
    throw RuntimeError(errorNumber::elementNotFound, L"Es ist nichts ausgewählt.");
}

void basDateien::makeActive(const host::Document& document) {
    autoCAD_.activate(document);
    events_.ShowNodeStatus();
}

std::wstring basDateien::GetSelectedDrawingFile(bool fromList) {
    return records_.DrawingRecords.Item(selection(fromList).key)->Gesamt;
}

std::wstring basDateien::GetSelectedTemplateFile(bool fromList) {
    std::wstring file;
    ignoringErrors([&] { file = records_.TemplateRecords.Item(selection(fromList).key)->Gesamt; });
    return file;
}

void basDateien::ActivateSelection(bool isLayout, bool askFirst, bool fromList) {
    autoCAD_.runCommand([&] {
        // With the root selected the list shows drawings, otherwise layouts.
        const bool rootSelected = tree_.selectedKey().kind() == NodeKind::loadedDrawings;
        const Selection chosen = selection(fromList || rootSelected);
        const bool wantsLayout = isLayout || (fromList && !rootSelected);
        const auto& records = wantsLayout ? records_.LayoutRecords : records_.DrawingRecords;
        const auto record = records.Item(chosen.key);
        if (isLayout && record->drawing() == record->Gesamt) return;
        const Lookup outcome = switchDrawing(record->drawing(), chosen, isLayout, askFirst);
        if (outcome == Lookup::noAnswer) return;
        if (outcome == Lookup::found && wantsLayout) switchLayout(record->Layout);
        // The marks move also when the user does not want to leave the active drawing; required so.
        markActivated();
    });
}

Lookup basDateien::switchDrawing(const std::wstring& drawing, const Selection& chosen, bool isLayout,
                                 bool askFirst) {
    ignoringErrors([this] { autoCAD_.fetchActiveDocument(); });
    if (platform_.locale.equalIgnoringCase(drawing, autoCAD_.GetActiveDrawingName())) return Lookup::found;
    if (askFirst && !platform_.messages.ask(chosen.text + L" zum aktiven Dokument machen?"))
        return Lookup::notOpen;
    if (tree_.selectedKey().kind() == NodeKind::drawing && !isLayout)
        tree_.view().selected()->setExpanded(true);
    const FoundDocuments found = autoCAD_.find(drawing);
    for (const host::Document& document : found.documents) makeActive(document);
    autoCAD_.foundOrTold(found);
    return found.outcome;
}

void basDateien::switchLayout(const std::wstring& layout) {
    const host::Document& document = autoCAD_.gAcadDoc;
    if (platform_.locale.equalIgnoringCase(document.ActiveLayout().Name(), layout)) return;
    const host::Layouts layouts = document.Layouts();
    host::Layout wanted;
    try {
        wanted = layouts.Item(layout);
    } catch (const RuntimeError& error) {
        if (isSilence(error)) throw;
        return;
    }
    document.putActiveLayout(wanted);
}

void basDateien::markActivated() {
    ClearListBold();
    tree_.ClearActiveMarks();
    TreeNode* node = tree_.view().selected();
    if (node && NodeKey::parse(node->key()).kind() != NodeKind::loadedDrawings) {
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
    const NodeKind kind = tree_.selectedKey().kind();
    if (kind == NodeKind::drawing) ActivateSelection(false, true, !flag);
    if (kind == NodeKind::layout) ActivateSelection(true, true, false);
    if (kind == NodeKind::libraryFile) OpenTemplate(true);
}

bool basDateien::open(const std::wstring& file) {
    try {
        autoCAD_.gAcadDoc = autoCAD_.gAcadApp.Documents().Open(file);
        return true;
    } catch (const RuntimeError& error) {
        const std::wstring what = isAnswerLost(error) ? L"Ob " + file + L" geöffnet wurde, ist nicht bekannt!"
                                                      : file + L" kann nicht geöffnet werden!";
        platform_.messages.warn(what + L"\n\n" + error.description());
        return !isSilence(error);
    }
}

void basDateien::OpenTemplate(bool askFirst) {
    ignoringErrors([&] {
        const Selection chosen = selection(tree_.selectedKey().kind() == NodeKind::library);
        const std::wstring file = records_.TemplateRecords.Item(chosen.key)->Gesamt;
        const Lookup outcome = autoCAD_.find(file).outcome;
        if (outcome == Lookup::notOpen) {
            if (!askFirst || platform_.messages.ask(chosen.text + L" öffnen?")) open(file);
        } else if (outcome == Lookup::noAnswer) {
            events_.showHint(L"AutoCAD antwortet nicht.");
        } else if (!askFirst) {
            platform_.messages.inform(chosen.text + L" ist bereits geladen!");
        }
    });
    events_.RefreshTree();
}

void basDateien::CloseDrawing() {
    autoCAD_.runCommand([&] {
        const FoundDocuments found =
            autoCAD_.find(GetSelectedDrawingFile(tree_.selectedKey().kind() == NodeKind::loadedDrawings));
        // A drawing that is closed already must not cost another one its document.
        if (!autoCAD_.foundOrTold(found)) return;
        makeActive(found.last());
        autoCAD_.BringAutoCADToFront();
        autoCAD_.typeCommand(autoCAD_.gAcadDoc, TypedCommand::closeDrawing);
    });
}

void basDateien::SaveDrawing(bool saveAs) {
    autoCAD_.runCommand([&] {
        const bool fromList = tree_.selectedKey().kind() == NodeKind::loadedDrawings;
        const FoundDocuments found = autoCAD_.find(GetSelectedDrawingFile(fromList));
        if (!autoCAD_.foundOrTold(found)) return;
        const host::Document document = found.last();
        if (saveAs) {
            makeActive(document);
            autoCAD_.BringAutoCADToFront();
            autoCAD_.typeCommand(document, TypedCommand::saveDrawingAs);
            return;
        }
        const std::wstring text = selection(fromList).text;
        if (!platform_.messages.ask(text + L" speichern?")) return;
        try {
            document.Save();
        } catch (const RuntimeError& error) {
            const std::wstring what = isAnswerLost(error)
                                          ? L"Ob " + text + L" gespeichert wurde, ist nicht bekannt!"
                                          : text + L" konnte nicht gespeichert werden!";
            platform_.messages.reportError(what + L"\n\n" + error.description());
        }
    });
}

void basDateien::InsertLayoutFromTemplate() {
    const std::wstring file = GetSelectedTemplateFile(tree_.selectedKey().kind() == NodeKind::library);
    if (file.empty()) return;
    ignoringErrors([&] {
        const host::Document document = autoCAD_.fetchActiveDocument();
        const FileDialogsOff fileDialogsOff(autoCAD_.borrowed, document);
        autoCAD_.BringAutoCADToFront();
        autoCAD_.typeCommand(document, TypedCommand::insertLayouts, {file});
    });
}

bool basDateien::OpenDroppedFile(const std::wstring& file) {
    const std::wstring upper = platform_.locale.upperCase(file);
    if (!upper.ends_with(L"DXF") && !upper.ends_with(L"DWG") && !upper.ends_with(L"DWT")) return true;
    // The records are asked, not the host: a drawing once listed counts as loaded, even closed. Required so.
    for (const auto& record : records_.DrawingRecords) {
        if (platform_.locale.upperCase(record->Gesamt) != upper) continue;
        platform_.messages.inform(record->Gesamt + L" ist bereits geladen!");
        return true;
    }
    return open(file);
}

void basDateien::SwitchToModelSpace() {
    ignoringErrors([&] {
        const std::wstring drawing =
            GetSelectedDrawingFile(tree_.selectedKey().kind() == NodeKind::loadedDrawings);
        const FoundDocuments found = autoCAD_.find(drawing);
        if (found.outcome == Lookup::noAnswer) return events_.showHint(L"AutoCAD antwortet nicht.");
        for (const host::Document& document : found.documents)
            ignoringErrors([&] { document.putActiveSpace(host::Space::model); });
        events_.RefreshTree();
    });
}

}  // namespace blattwart
