#include "planlist/frmPlanliste.h"

#include <algorithm>

#include "planlist/PlanWindowSettings.h"

namespace blattwart {

namespace {

struct Column {
    const wchar_t* header;
    float width;   // twips
    int position;  // on the screen
};
/// In the order of PlanColumn.
constexpr std::array<Column, planColumns> columns{{{L"Layout", 2700, 2},
                                                   {L"Zeichnung", 2400, 0},
                                                   {L"Nr.", 600, 1},
                                                   {L"Plotgerät", 2200, 3},
                                                   {L"Papierformat", 2600, 4},
                                                   {L"Plotstil", 1700, 5},
                                                   {L"Status", 1900, 6}}};

constexpr Shortcut control(wchar_t letter) {
    return {.key = static_cast<std::uint16_t>(letter), .control = true};
}

std::wstring counted(int count, const wchar_t* one, const wchar_t* several) {
    return std::to_wstring(count) + (count == 1 ? one : several);
}

}  // namespace

frmPlanliste::frmPlanliste(basAutoCAD& autoCAD, PlanDialogs& dialogs, basHTMLHelp& help, Platform& platform)
    : lvPlan(platform.locale),
      autoCAD_(autoCAD),
      dialogs_(dialogs),
      help_(help),
      platform_(platform),
      plan_(platform.locale),
      reader_(autoCAD, platform, plan_),
      writer_(reader_, plan_, undo_, platform),
      order_(autoCAD, reader_, plan_, undo_),
      transfer_(reader_, plan_, undo_, platform.locale),
      restore_(autoCAD),
      pdf_(reader_, plan_, restore_, platform) {
    lvPlan.setMode(ListViewMode::details);
    std::vector<int> positions;
    for (const Column& column : columns) {
        lvPlan.addColumn(column.header, column.width);
        positions.push_back(column.position);
    }
    lvPlan.setColumnPositions(positions);
    lvPlan.setSortKey(static_cast<int>(PlanColumn::drawing) - 1);
    lvPlan.setSorted(true);
    txtFilter.setToolTip(L"Zeigt nur Layouts, in denen alle Wörter vorkommen (Strg+F)");
    listCommands();
    connectCommands();
    connectEvents();
}

void frmPlanliste::listCommands() {
    using Needs = Command::Needs;
    commands_ = {
        {nullptr,
         L"In AutoCAD an&zeigen",
         {.key = Shortcut::enter},
         &frmPlanliste::showInAutoCAD,
         Needs::rows,
         L""},
        {&cmdUmbenennen,
         L"&Umbenennen...",
         {.key = Shortcut::f2},
         &frmPlanliste::rename,
         Needs::selection,
         L"Benennt die markierten Layouts nach einem Muster um, mit Vorschau (F2)",
         true},
        {&cmdReihenfolge,
         L"&Reihenfolge...",
         {},
         &frmPlanliste::order,
         Needs::selection,
         L"Ändert die Reihenfolge der Layouts in ihren Zeichnungen (Alt+Auf, Alt+Ab)"},
        {&cmdEinstellungen,
         L"&Seiteneinrichtung...",
         {},
         &frmPlanliste::carryPageSetup,
         Needs::several,
         L"Überträgt die Seiteneinrichtung des Layouts mit dem Fokus auf die anderen markierten"},
        {&cmdPdf, L"P&DF erzeugen...", control(L'P'), &frmPlanliste::makePdf, Needs::selection,
         L"Plottet die markierten Layouts in je eine PDF-Datei (Strg+P)"},
        {&cmdKopieren, L"&Kopieren", control(L'C'), &frmPlanliste::copy, Needs::rows,
         L"Kopiert die markierten oder alle sichtbaren Zeilen, zum Einfügen in Excel (Strg+C)", true},
        {&cmdCsv,
         L"&CSV speichern...",
         {},
         &frmPlanliste::saveCsv,
         Needs::rows,
         L"Speichert die markierten oder alle sichtbaren Zeilen als CSV-Datei"},
        {nullptr, L"Zeichnungen sp&eichern", control(L'S'), &frmPlanliste::saveDrawings, Needs::selection,
         L""},
        {nullptr, L"Alles &markieren", control(L'A'), &frmPlanliste::selectAll, Needs::rows, L"", true},
        {&cmdRueckgaengig, L"Rück&gängig", control(L'Z'), &frmPlanliste::undo, Needs::undo, L"", true},
        {&cmdAktualisieren,
         L"&Aktualisieren",
         {.key = Shortcut::f5},
         &frmPlanliste::refresh,
         Needs::nothing,
         L"Liest alle geladenen Zeichnungen neu (F5)"}};
}

void frmPlanliste::connectCommands() {
    for (Command& command : commands_) {
        if (command.separatorBefore) popupMenu.addSeparator();
        MenuItem& item = popupMenu.add({}, command.caption, command.shortcut);
        item.click = [this, run = command.run] {
            handle([&] {
                putHostBack();
                (this->*run)();
            });
        };
        command.item = &item;
        if (!command.button) continue;
        command.button->setToolTip(command.toolTip);
        command.button->events.click = item.click;
    }
    commands_.front().item->setDefault(true);
}

void frmPlanliste::connectEvents() {
    lvPlan.events = {
        .doubleClick =
            [this] {
                const MenuItem& show = *commands_.front().item;
                if (show.enabled()) show.click();
            },
        .contextMenu = [this] { window().popUpMenu(popupMenu); },
        .selectionChange =
            [this] {
                // Where the user is now he wants to be.
                wantedDrawing_.clear();
                handle([] {});
            },
        .columnClick = [this](int column) { columnClick(column); },
        .afterLabelEdit = [this](const std::wstring& name) { handle([&] { afterLabelEdit(name); }); }};
    txtFilter.events.change = [this] { handle([this] { fill(); }); };
    cmdClose.events.click = [this] { close(); };
}

void frmPlanliste::Form_Load(const std::wstring& drawing, const std::wstring& layout) {
    if (reader_.state() == PlanReader::State::idle) restoreColumns(lvPlan, platform_.settings);
    wantedDrawing_ = drawing;
    wantedLayout_ = layout;
    note_.clear();
    closing_ = false;
    beginReading();
    focusWanted();
    showState();
}

void frmPlanliste::opened() {
    if (const auto placement = storedPlacement(platform_.settings)) window().setPlacement(*placement);
    window().stepLater();
}

/// What is half done is put back first: nobody would see it any more. While a call waits, which only the end
/// of the program does not let be, none can be made, and what works with its answer is left as it is.
void frmPlanliste::unload() {
    if (!platform_.gate.callPending()) {
        if (work_ == Work::writing) {
            group_->stop();
            while (group_->step()) {
            }
        }
        work_ = Work::none;
        reader_.stop();
        plan_.letGo();
    }
    putHostBack();
    storePlacement(window().placement(), platform_.settings);
    storeColumns(lvPlan, platform_.settings);
}

void frmPlanliste::putHostBack() {
    if (restore_.outstanding() && !platform_.gate.callPending()) restore_.finish();
}

void frmPlanliste::showHelp() {
    help_.ShowHelpTopic(helpTopic::planList);
}

void frmPlanliste::handle(const std::function<void()>& work) {
    note_.clear();
    work();
    showState();
}

bool frmPlanliste::isPossible(Command::Needs needs) const {
    using Needs = Command::Needs;
    if (needs == Needs::nothing) return work_ != Work::writing;
    if (work_ != Work::none) return false;
    switch (needs) {
        case Needs::rows:
            return lvPlan.count() > 0;
        case Needs::selection:
            return lvPlan.selected() != nullptr;
        case Needs::several:
            return lvPlan.selectedItems().size() > 1;
        default:
            return !undo_.empty();
    }
}

void frmPlanliste::showState() {
    for (const Command& command : commands_) {
        const bool possible = isPossible(command.needs);
        command.item->setEnabled(possible);
        if (command.button) command.button->setEnabled(possible);
    }
    cmdRueckgaengig.setToolTip(undo_.empty() ? L""
                                             : L"Macht rückgängig: " + undo_.top().text() + L" (Strg+Z)");
    lblStatus.setText(statusText());
}

std::wstring frmPlanliste::statusText() const {
    if (work_ == Work::writing) return workText_;
    if (work_ == Work::reading) return reader_.statusText();
    if (!note_.empty()) return note_;
    std::wstring ofReading = reader_.statusText();
    if (lvPlan.count() == 0 && (ofReading.empty() || plan_.layoutCount() > 0)) return emptyText();
    if (lvPlan.count() == 0) return ofReading;
    const int all = plan_.layoutCount();
    std::wstring text = counted(all, L" Layout", L" Layouts");
    if (lvPlan.count() < all) text = std::to_wstring(lvPlan.count()) + L" von " + text;
    const std::size_t selected = lvPlan.selectedItems().size();
    if (selected > 0) text += L", " + std::to_wstring(selected) + L" markiert";
    return ofReading.empty() ? text : text + L". " + ofReading;
}

std::wstring frmPlanliste::emptyText() const {
    if (plan_.layoutCount() > 0) return L"Kein Layout passt zum Filter. Esc löscht den Filter.";
    return plan_.drawings().empty() ? L"Keine Zeichnung geladen."
                                    : L"Die geladenen Zeichnungen haben keine Layouts.";
}

void frmPlanliste::columnClick(int column) {
    const Update<ListView> update(lvPlan);
    const bool same = lvPlan.sortKey() == column - 1;
    const bool ascending = !same || lvPlan.sortOrder() == SortOrder::descending;
    lvPlan.setSortKey(column - 1);
    lvPlan.setSortOrder(ascending ? SortOrder::ascending : SortOrder::descending);
}

void frmPlanliste::fill() {
    plan_.fill(lvPlan, txtFilter.text());
    focusWanted();
}

void frmPlanliste::focusWanted() {
    if (!wantedDrawing_.empty()) {
        for (int i = 0; i < lvPlan.count(); ++i) {
            ListItem& item = lvPlan.row(i);
            const PlanList::Place place = plan_.find(PlanList::numberOf(item.key()));
            if (!isWanted(*place.drawing)) continue;
            const bool ofLayout = platform_.locale.equalIgnoringCase(place.row->name, wantedLayout_);
            if (!wantedLayout_.empty() && !ofLayout) continue;
            wantedDrawing_.clear();
            lvPlan.setFocused(&item);
            lvPlan.ensureVisible(item);
            return;
        }
    }
    if (!lvPlan.focused() && lvPlan.count() > 0) lvPlan.setFocused(&lvPlan.row(0));
}

bool frmPlanliste::isWanted(const PlanDrawing& drawing) const {
    const Locale& locale = platform_.locale;
    // The navigator has the drawings never saved in some folder.
    const std::wstring wanted =
        drawing.everSaved() ? wantedDrawing_ : wantedDrawing_.substr(wantedDrawing_.rfind(L'\\') + 1);
    return locale.equalIgnoringCase(drawing.fullName(), wanted);
}

std::vector<int> frmPlanliste::selectedRows() const {
    std::vector<int> rows;
    for (const ListItem* item : lvPlan.selectedItems()) rows.push_back(PlanList::numberOf(item->key()));
    return rows;
}

std::vector<std::wstring> frmPlanliste::selectedDrawings() {
    std::vector<std::wstring> drawings;
    for (const int row : selectedRows()) {
        const std::wstring& identity = plan_.find(row).drawing->identity;
        if (std::ranges::find(drawings, identity) == drawings.end()) drawings.push_back(identity);
    }
    return drawings;
}

}  // namespace blattwart
