#include "planlist/frmPlanEinstellungen.h"

#include <algorithm>

namespace blattwart {

namespace {

constexpr int noteColumn = 9;

}  // namespace

frmPlanEinstellungen::frmPlanEinstellungen(PlanList& plan, PlanTransfer& transfer, std::vector<int> rows,
                                           basHTMLHelp& help, Platform& platform)
    : lvNach(platform.locale),
      plan_(plan),
      transfer_(transfer),
      rows_(std::move(rows)),
      help_(help),
      platform_(platform),
      source_(rows_.front()) {
    lvNach.setMode(ListViewMode::details);
    constexpr std::array<std::pair<const wchar_t*, float>, noteColumn> columns{{{L"Layout", 1500},
                                                                                {L"Zeichnung", 1500},
                                                                                {L"Plotgerät", 2300},
                                                                                {L"Papierformat", 2600},
                                                                                {L"Ausrichtung", 2000},
                                                                                {L"Plotstil", 1900},
                                                                                {L"Maßstab", 900},
                                                                                {L"Plotbereich", 1700},
                                                                                {L"Hinweis", 3000}}};
    for (const auto& [header, width] : columns) lvNach.addColumn(header, width);
    lvNach.setColumnPositions({1, 0, 2, 3, 4, 5, 6, 7, 8});
    lvNach.events.selectionChange = [this] { showState(); };
    cmdQuelle.events.click = [this] { cmdQuelle_Click(); };
    cmdUebertragen.events.click = [this] { cmdUebertragen_Click(); };
    cmdCancel.events.click = [this] { cancel(); };
    showState();
}

void frmPlanEinstellungen::opened() {
    window().stepLater();
}

void frmPlanEinstellungen::showHelp() {
    help_.ShowHelpTopic(helpTopic::carryPageSetup);
}

std::function<void()> frmPlanEinstellungen::commandOf(const Shortcut& key, const Control*) {
    if (key == Shortcut{.key = Shortcut::escape}) return [this] { cancel(); };
    return {};
}

/// What has been begun is read back first, so that it can be taken back.
void frmPlanEinstellungen::unload() {
    if (work_ == Work::writing && !platform_.gate.callPending()) {
        transfer_.stop();
        while (transfer_.step()) {
        }
        result_ = transfer_.result();
    }
    work_ = Work::none;
}

void frmPlanEinstellungen::step() {
    if (work_ == Work::reading) return readNext();
    if (work_ == Work::writing) return writeNext();
}

void frmPlanEinstellungen::readNext() {
    const LongRead watch(platform_.readings, L"Seiteneinrichtungen werden gelesen");
    try {
        const PlanList::Place place = plan_.find(rows_[read_]);
        if (place) settings_[rows_[read_]] = readPlotSettings(place.row->layout);
        ++read_;
    } catch (const RuntimeError&) {
        work_ = Work::none;
        reported_ = true;
        note_ = L"AutoCAD antwortet nicht.";
    }
    if (read_ == rows_.size()) work_ = Work::none;
    if (work_ == Work::reading) window().stepLater();
    show();
}

void frmPlanEinstellungen::writeNext() {
    const bool more = transfer_.step();
    show();
    if (more) return window().stepLater();
    work_ = Work::none;
    reported_ = true;
    result_ = transfer_.result();
    const std::wstring message = result_.message();
    if (result_.end == PlanWriteResult::End::otherwise) {
        note_ = message;
    } else if (!message.empty()) {
        note_ = result_.statusText();
        platform_.messages.warn(message);
    }
    if (result_.end == PlanWriteResult::End::done || closing_) return window().close();
    if (result_.end == PlanWriteResult::End::cancelled) note_ = result_.statusText();
    window().forgetEscape();
    showState();
}

void frmPlanEinstellungen::show() {
    preview_ = previewTransfer(plan_, source_, rows_, settings_, platform_.locale);
    {
        const Update<ListView> update(lvNach);
        lvNach.clear();
        for (const TransferPreviewRow& row : preview_.rows) {
            ListItem& item = lvNach.add(PlanList::keyOf(row.row), row.layout);
            item.setBold(row.row == source_);
            item.setColumn(2, row.drawing);
            for (std::size_t i = 0; i < row.cells.size(); ++i)
                item.setColumn(static_cast<int>(i) + 3, row.cells[i]);
            const auto outcome = transfer_.notes().find(row.row);
            item.setColumn(noteColumn,
                           begun_ && outcome != transfer_.notes().end() ? outcome->second : row.note);
        }
    }
    showState();
}

void frmPlanEinstellungen::showState() {
    const PlanList::Place source = plan_.find(source_);
    if (source) txtVon.setText(source.drawing->shownName + L", " + source.row->name);
    const ListItem* item = lvNach.selected();
    const bool idle = work_ == Work::none && !reported_;
    cmdQuelle.setEnabled(idle && item && item->key() != PlanList::keyOf(source_));
    cmdUebertragen.setEnabled(idle && preview_.changes > 0);
    cmdCancel.setText(reported_ ? L"Schließen" : L"Abbrechen");
    lblStatus.setText(statusText());
}

std::wstring frmPlanEinstellungen::statusText() const {
    if (work_ == Work::reading)
        return L"Seiteneinrichtung " + std::to_wstring(read_ + 1) + L" von " + std::to_wstring(rows_.size()) +
               L" wird gelesen … (Esc bricht ab)";
    if (work_ == Work::writing) return L"Seiteneinrichtung wird übertragen … (Esc bricht ab)";
    if (!note_.empty()) return note_;
    if (preview_.unread) return L"Nicht lesbare Einstellungen können geändert bleiben.";
    if (preview_.changes == 0) return L"Alle Layouts sind schon so eingerichtet.";
    return std::to_wstring(preview_.changes) +
           (preview_.changes == 1 ? L" Layout wird geändert." : L" Layouts werden geändert.");
}

void frmPlanEinstellungen::cmdQuelle_Click() {
    const ListItem* item = lvNach.selected();
    if (!item) return;
    source_ = PlanList::numberOf(item->key());
    show();
}

void frmPlanEinstellungen::cmdUebertragen_Click() {
    transfer_.begin(source_, rows_, settings_);
    begun_ = true;
    work_ = Work::writing;
    window().stepLater();
    showState();
}

/// Writing is ended first, between two layouts.
void frmPlanEinstellungen::cancel() {
    if (work_ != Work::writing) return window().close();
    closing_ = true;
    transfer_.stop();
    writeNext();
}

}  // namespace blattwart
