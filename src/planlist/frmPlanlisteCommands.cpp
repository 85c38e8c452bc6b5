// What the commands of the plan list do, and the work that goes in steps.

#include <algorithm>

#include "planlist/frmPlanEinstellungen.h"
#include "planlist/frmPlanliste.h"
#include "planlist/frmPlanUmbenennen.h"
#include "planlist/PlanCommands.h"
#include "planlist/PlanExport.h"

namespace blattwart {

std::function<void()> frmPlanliste::commandOf(const Shortcut& key, const Control* focused) {
    if (key == Shortcut{.key = Shortcut::escape}) return [this] { escape(); };
    if (key == Shortcut{.key = L'F', .control = true}) return [this] { window().setFocus(txtFilter); };
    const bool down = key == Shortcut{.key = Shortcut::down};
    if (focused == &txtFilter && (down || key == Shortcut{.key = Shortcut::enter}))
        return [this] { window().setFocus(lvPlan); };
    const bool up = key == Shortcut{.key = Shortcut::up, .alt = true};
    if (focused == &lvPlan && (up || key == Shortcut{.key = Shortcut::down, .alt = true})) {
        using Step = frmPlanReihenfolge::FirstStep;
        return [this, step = up ? Step::up : Step::down] {
            if (isPossible(Command::Needs::selection)) handle([&] { order(step); });
        };
    }
    for (const Command& command : commands_) {
        if (command.shortcut != key || key.key == 0) continue;
        // In the filter these are for its text, on a button Enter presses it.
        const bool ofList =
            key.key == Shortcut::enter || key.key == L'A' || key.key == L'C' || key.key == L'Z';
        if (ofList && focused != &lvPlan) return {};
        return [item = command.item] {
            if (item->enabled()) item->click();
        };
    }
    return {};
}

void frmPlanliste::escape() {
    if (work_ == Work::reading) {
        reader_.stop();
        goOnReading();
    } else if (work_ == Work::writing) {
        group_->stop();
        goOnWriting();
    } else if (!txtFilter.text().empty()) {
        return txtFilter.setText(L"");
    } else {
        return close();
    }
    window().forgetEscape();
}

/// Writing is ended first, between two drawings.
void frmPlanliste::close() {
    if (work_ != Work::writing) return window().close();
    closing_ = true;
    group_->stop();
    goOnWriting();
}

void frmPlanliste::step() {
    if (work_ == Work::reading) goOnReading();
    if (work_ == Work::writing) goOnWriting();
}

void frmPlanliste::beginReading() {
    work_ = Work::reading;
    reader_.begin();
}

void frmPlanliste::goOnReading() {
    if (reader_.step()) {
        window().stepLater();
    } else {
        work_ = Work::none;
        if (reader_.state() == PlanReader::State::stopped) window().forgetEscape();
    }
    fill();
    if (work_ == Work::none) wantedDrawing_.clear();
    showState();
}

/// What was read again may have papers whose names are not known.
void frmPlanliste::goOnReadingPapers() {
    if (reader_.state() != PlanReader::State::reading) return;
    work_ = Work::reading;
    window().stepLater();
}

void frmPlanliste::beginWriting(PlanGroup& group, const wchar_t* text) {
    group_ = &group;
    work_ = Work::writing;
    workText_ = text;
    window().stepLater();
}

void frmPlanliste::goOnWriting() {
    if (group_->step()) {
        fill();
        return window().stepLater();
    }
    work_ = Work::none;
    note_ = group_->result().statusText();
    goOnReadingPapers();
    fill();
    showState();
    tell(group_->result());
    if (closing_) window().close();
}

void frmPlanliste::tell(const PlanWriteResult& result) {
    const std::wstring message = result.message();
    if (message.empty()) return;
    if (result.end != PlanWriteResult::End::partly || !result.remains)
        return platform_.messages.warn(message);
    if (platform_.messages.ask(
            message +
            L"\n\nSoll der Rest bleiben, wie er ist? Mit „Nein“ können Sie es noch einmal versuchen.")) {
        undo_.pop();
        showState();
    }
}

void frmPlanliste::showInAutoCAD() {
    const ListItem* item = lvPlan.selected() ? lvPlan.selected() : lvPlan.focused();
    const PlanList::Place place = item ? plan_.find(PlanList::numberOf(item->key())) : PlanList::Place();
    if (!place) return;
    const std::wstring message = showLayout(autoCAD_, reader_, place);
    fill();
    if (!message.empty()) platform_.messages.warn(message);
}

void frmPlanliste::rename() {
    const std::vector<ListItem*> selected = lvPlan.selectedItems();
    if (selected.size() == 1) return lvPlan.startLabelEdit(*selected.front());
    frmPlanUmbenennen dialog(plan_, selectedRows(), pattern_, help_, platform_);
    dialogs_.showModal(dialog);
    const std::vector<PlanWriter::NewName> names = dialog.names();
    if (names.empty()) return;
    writer_.beginRenaming(names);
    beginWriting(writer_, L"Layouts werden umbenannt …");
}

void frmPlanliste::order(frmPlanReihenfolge::FirstStep step) {
    frmPlanReihenfolge dialog(plan_, selectedRows(), step, help_, platform_);
    dialogs_.showModal(dialog);
    if (dialog.orders().empty()) return;
    order_.begin(dialog.orders());
    beginWriting(order_, L"Reihenfolge wird geändert …");
}

/// From the row with the focus to the other selected ones.
void frmPlanliste::carryPageSetup() {
    const int source = PlanList::numberOf(lvPlan.selected()->key());
    std::vector<int> rows{source};
    std::ranges::copy_if(selectedRows(), std::back_inserter(rows), [&](int row) { return row != source; });
    frmPlanEinstellungen dialog(plan_, transfer_, std::move(rows), help_, platform_);
    dialogs_.showModal(dialog);
    note_ = dialog.result().statusText();
    fill();
    goOnReadingPapers();
}

void frmPlanliste::makePdf() {
    const PlanWriteResult check = PlanWriteResult::of(reader_.check(selectedDrawings()));
    if (check.end == PlanWriteResult::End::done) {
        if (!pdfChoice_) pdfChoice_ = storedPdfChoice(platform_.settings);
        frmPlanPdf dialog(plan_, pdf_, selectedRows(), *pdfChoice_, help_, platform_);
        dialogs_.showModal(dialog);
    } else if (const std::wstring message = check.message(); !message.empty()) {
        platform_.messages.warn(message);
    }
    fill();
    goOnReadingPapers();
}

void frmPlanliste::afterLabelEdit(const std::wstring& name) {
    const ListItem* item = lvPlan.selected();
    if (!item || work_ != Work::none) return;
    const RenamePreview preview = previewName(plan_, PlanList::numberOf(item->key()), name, platform_.locale);
    if (preview.rows.empty() || preview.changes == 0) return;
    const RenamePreviewRow& row = preview.rows.front();
    if (row.conflict)
        return platform_.messages.warn(L"„" + row.oldName + L"“ kann nicht in „" + name +
                                       L"“ umbenannt werden: " + row.note);
    writer_.beginRenaming({{row.number, name}});
    beginWriting(writer_, L"Layout wird umbenannt …");
}

void frmPlanliste::copy() {
    const PlanTable table = planTable(lvPlan);
    try {
        platform_.clipboard.put(clipboardText(table), clipboardHtml(table));
    } catch (const RuntimeError&) {
        return platform_.messages.warn(L"Die Zwischenablage ist belegt. Bitte versuchen Sie es noch einmal.");
    }
    const std::size_t rows = table.size() - 1;
    note_ = std::to_wstring(rows) + (rows == 1 ? L" Zeile kopiert." : L" Zeilen kopiert.");
}

void frmPlanliste::saveCsv() {
    const auto file = platform_.fileDialogs.save(
        L"Planliste speichern", L"CSV-Dateien (*.csv)|*.csv|Alle Dateien (*.*)|*.*", L"Planliste.csv");
    if (!file) return;
    try {
        platform_.files.writeAtomically(*file, csvText(planTable(lvPlan)));
        note_ = L"CSV-Datei gespeichert.";
    } catch (const RuntimeError& error) {
        platform_.messages.warn(L"Die Datei kann nicht geschrieben werden: " + error.description());
    }
}

void frmPlanliste::saveDrawings() {
    const PlanSaveResult result = blattwart::saveDrawings(plan_, reader_, selectedDrawings());
    fill();
    note_ = result.statusText();
    goOnReadingPapers();
    showState();
    const std::wstring message = result.message();
    if (!message.empty()) platform_.messages.warn(message);
}

void frmPlanliste::selectAll() {
    lvPlan.selectAll();
}

void frmPlanliste::undo() {
    if (!platform_.messages.ask(undo_.top().text() + L" rückgängig machen?")) return;
    const PlanUndoEntry& entry = undo_.top();
    PlanGroup* group = &writer_;
    const wchar_t* text = L"Layouts werden umbenannt …";
    if (!entry.orders.empty()) {
        group = &order_;
        text = L"Reihenfolge wird geändert …";
    } else if (!entry.settings.empty()) {
        group = &transfer_;
        text = L"Seiteneinrichtung wird übertragen …";
    }
    group->beginUndo();
    beginWriting(*group, text);
}

void frmPlanliste::refresh() {
    autoCAD_.ConnectAutoCAD();
    beginReading();
    window().stepLater();
}

}  // namespace blattwart
