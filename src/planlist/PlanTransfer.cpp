#include "planlist/PlanTransfer.h"

#include <algorithm>
#include <utility>

#include "planlist/HostFacts.h"

namespace blattwart {

using End = PlanWriteResult::End;

namespace {

constexpr const wchar_t* notDone = L"nicht bearbeitet";
constexpr const wchar_t* carriedOver = L"übertragen";

void addTo(std::wstring& notes, const std::wstring& note) {
    notes += (notes.empty() ? L"" : L"; ") + note;
}

}  // namespace

void PlanTransfer::begin(int sourceRow, std::span<const int> targetRows, const SettingsByRow& settings) {
    sourceRow_ = sourceRow;
    settings_ = settings;
    patterns_.clear();
    notes_.clear();
    std::vector<Job> jobs;
    for (const int row : targetRows) {
        const PlanList::Place place = plan_.find(row);
        if (!place || row == sourceRow || !settings.contains(row)) continue;
        jobs.push_back({place.drawing->identity, place.drawing->shownName, place.row->name, row});
        notes_[row] = notDone;
    }
    begin(std::move(jobs), false);
    phase_ = Phase::check;
}

void PlanTransfer::beginUndo() {
    std::vector<Job> jobs;
    const std::vector<SettingsChanged>& parts = undo_.top().settings;
    for (std::size_t i = 0; i < parts.size(); ++i)
        jobs.push_back({parts[i].drawing, parts[i].shownName, parts[i].layout, 0, i});
    begin(std::move(jobs), true);
    result_.what = undo_.top().text();
    checked_.clear();
    phase_ = Phase::write;
}

void PlanTransfer::begin(std::vector<Job> jobs, bool undoing) {
    jobs_ = std::move(jobs);
    std::ranges::reverse(jobs_);
    result_ = {};
    result_.undoing = undoing;
    result_.chosen = static_cast<int>(jobs_.size());
    result_.doneText = L"Seiteneinrichtung übertragen.";
}

bool PlanTransfer::step() {
    if (phase_ == Phase::check) {
        checkAll();
    } else if (phase_ == Phase::write) {
        nextLayout();
    } else if (phase_ == Phase::readBack) {
        readBack();
    }
    return phase_ != Phase::idle;
}

void PlanTransfer::stop() {
    jobs_.clear();
    if (phase_ == Phase::check || phase_ == Phase::write) finish(End::cancelled);
}

void PlanTransfer::checkAll() {
    std::vector<std::wstring> drawings;
    if (const PlanList::Place source = plan_.find(sourceRow_)) drawings.push_back(source.drawing->identity);
    for (const Job& job : jobs_)
        if (std::ranges::find(drawings, job.drawing) == drawings.end()) drawings.push_back(job.drawing);
    const PlanWriteResult check = PlanWriteResult::of(reader_.check(drawings));
    result_.drawings = check.drawings;
    if (check.end != End::done) return finish(check.end);
    undo_.push();
    phase_ = Phase::write;
}

PlanList::Place PlanTransfer::place() {
    PlanDrawing* drawing = plan_.findDrawing(job_.drawing);
    return {drawing, drawing ? plan_.findRow(*drawing, job_.layout) : nullptr};
}

void PlanTransfer::nextLayout() {
    if (!jobs_.empty()) {
        job_ = std::move(jobs_.back());
        jobs_.pop_back();
        try {
            if (result_.undoing) {
                takeBack();
            } else {
                transfer();
            }
        } catch (const RuntimeError& error) {
            if (reader_.isClosed(error)) {
                const std::wstring reason = L"„" + job_.shownName + L"“ ist nicht mehr geöffnet.";
                notes_[job_.row] = reason;
                result_.reasons.push_back(reason);
            } else if (part().now) {
                // Nothing has been put yet.
                finish(End::noAnswer);
            } else {
                phase_ = Phase::readBack;
            }
        }
    }
    finishWhenDone();
}

void PlanTransfer::finishWhenDone() {
    if (phase_ != Phase::write || !jobs_.empty()) return;
    if (result_.reasons.empty()) return finish(End::done);
    if (!result_.undoing) result_.reasons = {L"Nicht alles wurde übertragen, siehe Spalte „Hinweis“."};
    finish(result_.undoing ? End::partly : End::otherwise);
}

void PlanTransfer::transfer() {
    const PlanList::Place source = plan_.find(sourceRow_);
    const PlanList::Place target = place();
    if (!source || !target) return;
    const PlotSettings& settings = settings_[sourceRow_];
    const bool sameDrawing = source.drawing == target.drawing;
    const PlotSettings wanted = settingsToTake(settings, sameDrawing);
    std::wstring& note = notes_[job_.row];
    if (!sameDrawing && !canCross(settings)) {
        note = L"nicht übertragen: die Quelle hat kein Plotgerät";
    } else if (differences(wanted, settings_[job_.row]).empty()) {
        note = L"unverändert";
    } else {
        carryOver(source, target, wanted);
        note = notes_[job_.row];
        if (note != carriedOver) result_.reasons.push_back(note);
    }
    ++result_.done;
}

void PlanTransfer::carryOver(const PlanList::Place& source, const PlanList::Place& target,
                             const PlotSettings& wanted) {
    // Known before the first put: whatever happens, it can be taken back.
    job_.part = undo_.top().settings.size();
    undo_.top().settings.push_back(
        {job_.drawing, job_.shownName, job_.layout, settings_[job_.row], std::nullopt});
    const std::vector<PlotRefusal> refusals = copy(source, target, wanted);
    const PlotSettings now = readPlotSettings(target.row->layout);
    part().now = now;
    reader_.takePlotFacts(*target.row, now);
    notes_[job_.row] = noteOf(wanted, now, refusals);
    if (notes_[job_.row] == carriedOver) patterns_.try_emplace(job_.drawing, job_.row);
}

std::vector<PlotRefusal> PlanTransfer::copy(const PlanList::Place& source, const PlanList::Place& target,
                                            const PlotSettings& wanted) {
    written_.insert(job_.drawing);
    if (source.drawing == target.drawing) {
        if (copyAll(source, target)) return {};
    } else if (const auto pattern = patterns_.find(job_.drawing); pattern != patterns_.end()) {
        const PlanList::Place from = plan_.find(pattern->second);
        // What does not come along is each layout's own.
        if (unread(wanted).empty() && from && copyAll(from, target)) return {};
    }
    return writePlotSettings(target.row->layout, wanted, settings_[job_.row]);
}

/// False where the host refuses that.
bool PlanTransfer::copyAll(const PlanList::Place& from, const PlanList::Place& target) {
    try {
        target.row->layout.CopyFrom(from.row->layout);
    } catch (const RuntimeError& error) {
        if (isSilence(error)) throw;
        return false;
    }
    keepName(target);
    return true;
}

/// The host may have copied the name, too.
void PlanTransfer::keepName(const PlanList::Place& target) {
    PlanRow& row = *target.row;
    std::wstring now = row.name;
    try {
        readFact(now, [&] { return row.layout.Name(); });
        if (now != row.name) row.layout.putName(row.name);
    } catch (const RuntimeError& error) {
        if (isSilence(error)) throw;
        job_.renamed = L"heißt jetzt „" + now + L"“: " + error.description();
        part().layout = job_.layout = now;
        plan_.rename(*target.drawing, row, now);
    }
}

std::wstring PlanTransfer::noteOf(const PlotSettings& wanted, const PlotSettings& now,
                                  const std::vector<PlotRefusal>& refusals) const {
    std::wstring note = job_.renamed;
    for (const PlotProperty property : differences(wanted, now)) {
        const std::wstring name = plotPropertyName(property);
        const auto refusal = std::ranges::find(refusals, property, &PlotRefusal::property);
        const std::wstring is = plotPropertyText(now, property, locale_);
        const std::wstring shouldBe = plotPropertyText(wanted, property, locale_);
        if (refusal != refusals.end()) {
            addTo(note, name + L" nicht übernommen: " + refusal->reason);
            // Nothing else was tried.
            if (property == PlotProperty::device) return note;
        } else if (is.empty() || is == shouldBe) {
            addTo(note, name + L" nicht übernommen");
        } else {
            addTo(note, std::wstring(name).append(L" ist ").append(is).append(L" statt ").append(shouldBe));
        }
    }
    return note.empty() ? carriedOver : note;
}

bool PlanTransfer::isFit() {
    if (checked_ != job_.drawing) {
        const End end = PlanWriteResult::of(reader_.check(std::span(&job_.drawing, 1))).end;
        // A drawing that was changed may fit all the same.
        if (end != End::done && end != End::changedInHost) {
            finish(end);
            return false;
        }
        checked_ = job_.drawing;
    }
    if (place()) return true;
    result_.reasons.push_back(plan_.findDrawing(job_.drawing)
                                  ? L"Layout „" + job_.layout + L"“ gibt es nicht mehr."
                                  : L"„" + job_.shownName + L"“ ist nicht mehr geöffnet.");
    return false;
}

void PlanTransfer::takeBack() {
    if (!isFit()) return;
    const PlanList::Place target = place();
    const PlotSettings present = readPlotSettings(target.row->layout);
    SettingsChanged& changed = part();
    if (changed.now && !differences(*changed.now, present).empty()) {
        result_.reasons.push_back(L"Layout „" + job_.layout + L"“: Seiteneinrichtung inzwischen geändert.");
        return;
    }
    changed.now = present;
    putBack(changed, target);
}

void PlanTransfer::putBack(SettingsChanged& changed, const PlanList::Place& target) {
    PlotSettings before = changed.before;
    if (!before.hasDevice() && changed.now->hasDevice()) {
        result_.reasons.push_back(L"Layout „" + job_.layout +
                                  L"“: Plotgerät und Papier bleiben, vorher war kein Plotgerät gewählt.");
        before.device.reset();
        before.paper.reset();
    }
    if (!unread(changed.before).empty())
        result_.reasons.push_back(L"Layout „" + job_.layout +
                                  L"“: Nicht lesbare Einstellungen können geändert bleiben.");
    written_.insert(job_.drawing);
    const PlotSettings present = *std::exchange(changed.now, std::nullopt);
    const std::vector<PlotRefusal> refusals = writePlotSettings(target.row->layout, before, present);
    const PlotSettings now = readPlotSettings(target.row->layout);
    reader_.takePlotFacts(*target.row, now);
    const std::wstring note = noteOf(before, now, refusals);
    changed.now = now;
    ++result_.done;
    if (note == carriedOver) {
        // What cannot be put back is not tried again.
        changed.before = now;
    } else {
        result_.reasons.push_back(L"Layout „" + job_.layout + L"“: " + note);
    }
}

/// In an event of its own: where the user has given up on a busy host, all calls of that event fail.
void PlanTransfer::readBack() {
    notes_[job_.row] = L"AutoCAD antwortet nicht; vielleicht nur zum Teil übertragen";
    ignoringErrors([&] {
        const PlanList::Place target = place();
        if (!target) return;
        const PlotSettings now = readPlotSettings(target.row->layout);
        part().now = now;
        reader_.takePlotFacts(*target.row, now);
    });
    result_.reasons.clear();
    finish(End::noAnswer);
}

void PlanTransfer::finish(End end) {
    result_.end = end;
    jobs_.clear();
    for (const std::wstring& identity : std::exchange(written_, {}))
        if (PlanDrawing* drawing = plan_.findDrawing(identity)) reader_.readState(*drawing);
    phase_ = Phase::idle;
    result_.remains = undo_.settle();
}

}  // namespace blattwart
