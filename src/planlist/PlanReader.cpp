#include "planlist/PlanReader.h"

#include <algorithm>
#include <set>

#include "planlist/HostFacts.h"

namespace blattwart {

namespace {

constexpr std::size_t mostPapers = 100;
/// Bits of DBMOD; 8 and 16 come from looking at the drawing alone.
constexpr std::int32_t changesOfContent = 39;

}  // namespace

void PlanReader::begin() {
    state_ = State::reading;
    phase_ = Phase::names;
    waiting_.clear();
    papersWaiting_.clear();
    missing_ = 0;
    total_ = 0;
}

bool PlanReader::step() {
    if (state_ != State::reading) return false;
    LongRead watch(platform_.readings, L"Layouts werden gelesen");
    try {
        if (phase_ == Phase::names) {
            readOpenDrawings(watch);
        } else if (phase_ == Phase::drawings) {
            readNextDrawing(watch);
        } else {
            readNextPaper();
        }
    } catch (const RuntimeError&) {
        finish(State::noAnswer);
    }
    return state_ == State::reading;
}

void PlanReader::stop() {
    if (state_ != State::reading) return;
    if (phase_ == Phase::papers) return finishRead();
    finish(State::stopped);
}

void PlanReader::finish(State state) {
    if (phase_ == Phase::names) plan_.setDrawings({});
    plan_.remove(waiting_);
    missing_ += waiting_.size();
    waiting_.clear();
    papersWaiting_.clear();
    state_ = state;
}

/// All that can be shown is there.
void PlanReader::finishRead() {
    finish(missing_ == 0 ? State::done : State::stopped);
}

std::wstring PlanReader::statusText() const {
    switch (state_) {
        case State::reading:
            if (phase_ != Phase::drawings) return L"Layouts werden gelesen …";
            return L"Zeichnung " + std::to_wstring(total_ - waiting_.size() + 1) + L" von " +
                   std::to_wstring(total_) + L" wird gelesen … (Esc bricht ab)";
        case State::stopped:
            if (missing_ == 0) return L"Einlesen abgebrochen. F5 liest neu.";
            if (missing_ == 1) return L"Einlesen abgebrochen, 1 Zeichnung fehlt. F5 liest neu.";
            return L"Einlesen abgebrochen, " + std::to_wstring(missing_) +
                   L" Zeichnungen fehlen. F5 liest neu.";
        case State::noAnswer:
            return L"AutoCAD antwortet nicht. F5 liest neu.";
        case State::notRunning:
            return L"AutoCAD läuft nicht mehr.";
        default:
            return {};
    }
}

void PlanReader::readOpenDrawings(LongRead& watch) {
    if (!autoCAD_.gAcadApp) {
        finish(State::notRunning);
        return;
    }
    std::vector<PlanDrawing> open;
    const std::shared_ptr<OpenDocuments> documents = autoCAD_.openDocuments();
    for (const OpenDocument& each : *documents) {
        if (!watch.goOn()) {
            missing_ = documents->size();
            finish(State::stopped);
            return;
        }
        try {
            open.push_back(openDrawing(each.document()));
        } catch (const RuntimeError& error) {
            if (isClosed(error)) continue;
            if (isSilence(error)) throw;
            ++missing_;
        }
    }
    plan_.setDrawings(std::move(open));
    for (const PlanDrawing& drawing : plan_.drawings()) waiting_.push_back(drawing.identity);
    std::ranges::reverse(waiting_);
    total_ = waiting_.size();
    phase_ = Phase::drawings;
    if (waiting_.empty()) finishRead();
}

void PlanReader::readNextDrawing(LongRead& watch) {
    PlanDrawing& drawing = *plan_.findDrawing(waiting_.back());
    const Outcome outcome = readDrawing(drawing, watch);
    if (outcome == Outcome::noAnswer || outcome == Outcome::ended) {
        finish(outcome == Outcome::ended ? State::stopped : State::noAnswer);
        return;
    }
    if (outcome != Outcome::read) plan_.remove(std::span(&waiting_.back(), 1));
    if (outcome == Outcome::failed) ++missing_;
    waiting_.pop_back();
    if (waiting_.empty()) findPapers();
}

PlanReader::Outcome PlanReader::readDrawing(PlanDrawing& drawing, LongRead& watch) {
    try {
        std::optional<std::vector<PlanRow>> rows = readRows(drawing, watch);
        if (!rows) return Outcome::ended;
        askState(drawing);
        plan_.setRows(drawing, std::move(*rows));
        return Outcome::read;
    } catch (const RuntimeError& error) {
        if (isClosed(error)) return Outcome::closed;
        return isSilence(error) ? Outcome::noAnswer : Outcome::failed;
    }
}

std::optional<std::vector<PlanRow>> PlanReader::readRows(PlanDrawing& drawing, LongRead& watch) {
    std::vector<PlanRow> rows;
    for (const host::Layout& layout : drawing.document.Layouts().all()) {
        if (!watch.goOn()) return std::nullopt;
        if (std::optional<PlanRow> row = readRow(drawing, layout)) rows.push_back(std::move(*row));
    }
    return rows;
}

/// Nothing for the layout of model space.
std::optional<PlanRow> PlanReader::readRow(PlanDrawing& drawing, const host::Layout& layout) {
    PlanRow row;
    row.name = layout.Name();
    bool isModel = platform_.locale.equalIgnoringCase(row.name, L"Model");
    if (!isModel) {
        readFact(row.tabOrder, [&] { return layout.TabOrder(); });
        if (row.tabOrder == 0) readFact(isModel, [&] { return layout.ModelType(); });
    }
    if (isModel) {
        drawing.modelName = row.name;
        return std::nullopt;
    }
    readFact(row.device, [&] { return layout.ConfigName(); });
    readFact(row.canonicalPaper, [&] { return layout.CanonicalMediaName(); });
    readFact(row.styleSheet, [&] { return layout.StyleSheet(); });
    nameKnownPaper(row);
    row.layout = layout;
    return row;
}

void PlanReader::nameKnownPaper(PlanRow& row) const {
    row.paper = row.canonicalPaper.value_or(L"");
    const auto known = papers_.find({row.device.value_or(L""), row.paper});
    if (known != papers_.end() && !known->second.empty()) row.paper = known->second;
}

void PlanReader::takePlotFacts(PlanRow& row, const PlotSettings& settings) {
    row.device = settings.device;
    row.canonicalPaper = settings.paper;
    row.styleSheet = settings.styleSheet;
    nameKnownPaper(row);
    papersWaiting_.clear();
    findPapers();
}

bool PlanReader::readState(PlanDrawing& drawing) {
    return ignoringErrors([&] { askState(drawing); });
}

void PlanReader::askState(PlanDrawing& drawing) {
    drawing.currentLayout.reset();
    readFact(drawing.currentLayout, [&] { return drawing.document.GetTextVariable(L"CTAB"); });
    if (!drawing.currentLayout)
        readFact(drawing.currentLayout, [&] { return drawing.document.ActiveLayout().Name(); });
    drawing.changed = false;
    readFact(drawing.changed,
             [&] { return (drawing.document.GetVariable(L"DBMOD") & changesOfContent) != 0; });
    drawing.readOnly = false;
    readFact(drawing.readOnly, [&] { return drawing.document.ReadOnly(); });
}

bool PlanReader::isClosed(const RuntimeError& error) {
    return isGone(error) && ignoringErrors([&] { autoCAD_.gAcadApp.Documents(); });
}

void PlanReader::findPapers() {
    std::set<Paper> found;
    for (const PlanDrawing& drawing : plan_.drawings()) {
        for (const PlanRow& row : drawing.rows) {
            if (!row.device || row.canonicalPaper.value_or(L"").empty()) continue;
            const Paper paper(*row.device, *row.canonicalPaper);
            if (found.size() == mostPapers || papers_.contains(paper) || !found.insert(paper).second)
                continue;
            papersWaiting_.push_back(row.number);
        }
    }
    std::ranges::reverse(papersWaiting_);
    phase_ = Phase::papers;
    state_ = State::reading;
    if (papersWaiting_.empty()) finishRead();
}

void PlanReader::readNextPaper() {
    const PlanList::Place place = plan_.find(papersWaiting_.back());
    papersWaiting_.pop_back();
    if (place) {
        const Paper paper(*place.row->device, *place.row->canonicalPaper);
        std::wstring readable;
        try {
            readFact(readable, [&] { return place.row->layout.GetLocaleMediaName(paper.second); });
            papers_[paper] = readable;
        } catch (const RuntimeError& error) {
            if (!isClosed(error)) throw;
        }
        for (PlanDrawing& drawing : plan_.drawings()) {
            for (PlanRow& row : drawing.rows)
                if (!readable.empty() && row.device == paper.first && row.canonicalPaper == paper.second)
                    row.paper = readable;
        }
    }
    if (papersWaiting_.empty()) finishRead();
}

void PlanReader::readNames(PlanDrawing& drawing, std::span<const std::size_t> rows) {
    ignoringErrors([&] {
        for (const std::size_t i : rows) {
            PlanRow& row = drawing.rows[i];
            std::wstring name = row.name;
            readFact(name, [&] { return row.layout.Name(); });
            if (name != row.name) plan_.rename(drawing, row, name);
        }
        askState(drawing);
    });
    plan_.arrange(drawing);
}

}  // namespace blattwart
