#include "planlist/PlanWriter.h"

#include <algorithm>

#include "planlist/HostFacts.h"

namespace blattwart {

void PlanWriter::beginRenaming(const std::vector<NewName>& names) {
    std::vector<Job> jobs;
    for (const NewName& wanted : names) {
        const PlanList::Place place = plan_.find(wanted.row);
        if (!place || place.row->name == wanted.name) continue;
        auto job = std::ranges::find(jobs, place.drawing->identity, &Job::drawing);
        if (job == jobs.end())
            job = jobs.insert(jobs.end(), {place.drawing->identity, place.drawing->shownName, {}});
        job->names.push_back({place.row->name, wanted.name});
    }
    begin(std::move(jobs), false);
}

void PlanWriter::beginUndo() {
    std::vector<Job> jobs;
    for (const DrawingNamesChanged& changed : undo_.top().names) {
        jobs.push_back({changed.drawing, changed.shownName, {}});
        Job& job = jobs.back();
        for (const NameChanged& name : changed.names) job.names.push_back({name.now, name.before});
    }
    begin(std::move(jobs), true);
    result_.what = undo_.top().text();
}

void PlanWriter::begin(std::vector<Job> jobs, bool undoing) {
    jobs_ = std::move(jobs);
    std::ranges::reverse(jobs_);
    work_ = {};
    result_ = {};
    result_.undoing = undoing;
    for (const Job& job : jobs_) result_.chosen += static_cast<int>(job.names.size());
    phase_ = undoing ? Phase::write : Phase::check;
}

bool PlanWriter::step() {
    switch (phase_) {
        case Phase::check:
            checkAll();
            break;
        case Phase::write:
            nextDrawing();
            break;
        case Phase::takeBack:
            takeBack();
            break;
        default:
            break;
    }
    return phase_ != Phase::idle;
}

void PlanWriter::stop() {
    if (phase_ == Phase::idle) return;
    jobs_.clear();
    if (phase_ != Phase::takeBack) finish(PlanWriteResult::End::cancelled);
}

void PlanWriter::checkAll() {
    std::vector<std::wstring> drawings;
    for (const Job& job : jobs_) drawings.push_back(job.drawing);
    const PlanWriteResult check = PlanWriteResult::of(reader_.check(drawings));
    result_.drawings = check.drawings;
    if (check.end != PlanWriteResult::End::done) return finish(check.end);
    undo_.push();
    phase_ = Phase::write;
}

void PlanWriter::nextDrawing() {
    if (!jobs_.empty()) {
        Job job = std::move(jobs_.back());
        jobs_.pop_back();
        const std::vector<std::wstring> reasons = result_.undoing ? unfit(job) : std::vector<std::wstring>{};
        if (phase_ == Phase::idle) return;
        result_.reasons.insert(result_.reasons.end(), reasons.begin(), reasons.end());
        if (reasons.empty()) rename(std::move(job));
    }
    finishWhenDone();
}

void PlanWriter::finishWhenDone() {
    using End = PlanWriteResult::End;
    if (phase_ == Phase::write && jobs_.empty()) finish(result_.reasons.empty() ? End::done : End::partly);
}

std::vector<std::wstring> PlanWriter::unfit(Job& job) {
    using End = PlanWriteResult::End;
    const End end = PlanWriteResult::of(reader_.check(std::span(&job.drawing, 1))).end;
    // A drawing that was changed may fit all the same.
    if (end != End::done && end != End::changedInHost) {
        finish(end);
        return {};
    }
    PlanDrawing* drawing = plan_.findDrawing(job.drawing);
    if (!drawing) return {L"„" + job.shownName + L"“ ist nicht mehr geöffnet."};
    DrawingNamesChanged& part = undo_.top().namesOf(job.drawing, job.shownName);
    const auto exists = [&](const std::wstring& name) {
        return std::ranges::find(drawing->rows, name, &PlanRow::name) != drawing->rows.end();
    };
    if (const auto unknown = std::exchange(part.unknown, std::nullopt)) {
        if (exists(unknown->now) && !exists(unknown->before)) part.note(unknown->before, unknown->now);
        job.names.clear();
        for (const NameChanged& name : part.names) job.names.push_back({name.now, name.before});
    }
    std::vector<std::wstring> reasons;
    for (const NameChanged& name : job.names) {
        if (!exists(name.before)) {
            reasons.push_back(L"Layout „" + name.before + L"“ gibt es nicht mehr.");
            continue;
        }
        const PlanRow* holder = plan_.findRow(*drawing, name.now);
        if (holder && std::ranges::find(job.names, holder->name, &NameChanged::before) == job.names.end())
            reasons.push_back(L"Der Name „" + name.now + L"“ ist inzwischen vergeben.");
    }
    return reasons;
}

/// Carries out what was planned for a drawing as far as the host follows.
void PlanWriter::rename(Job job) {
    work_ = {};
    work_.job = std::move(job);
    const PlanDrawing& drawing = *this->drawing();
    std::vector<std::wstring> names;
    std::vector<std::wstring> wanted;
    for (const PlanRow& row : drawing.rows) {
        names.push_back(row.name);
        const auto change = std::ranges::find(work_.job.names, row.name, &NameChanged::before);
        wanted.push_back(change == work_.job.names.end() ? row.name : change->now);
    }
    work_.steps = planRenaming(names, wanted, platform_.locale);
    for (const RenameStep& step : work_.steps) {
        const std::optional<std::wstring> reason = put(step, step.to);
        if (reason) {
            work_.refusal = {drawing.shownName, names[step.layout], wanted[step.layout], *reason, true, {}};
            break;
        }
        ++work_.done;
    }
    if (work_.refusal && (work_.done > 0 || work_.uncertain)) {
        phase_ = Phase::takeBack;
    } else {
        endDrawing();
    }
}

std::optional<std::wstring> PlanWriter::put(const RenameStep& step, const std::wstring& name) {
    PlanRow& row = drawing()->rows[step.layout];
    try {
        row.layout.putName(name);
    } catch (const RuntimeError& error) {
        if (!isAnswerLost(error)) return error.description();
        work_.uncertain = true;
        std::wstring now;
        if (!ignoringErrors([&] { now = row.layout.Name(); })) return error.description();
        work_.uncertain = false;
        if (now != name) return error.description();
    }
    noteName(row, name);
    return std::nullopt;
}

void PlanWriter::noteName(PlanRow& row, const std::wstring& name) {
    undoPart().note(row.name, name);
    plan_.rename(*drawing(), row, name);
}

/// In an event of its own: where the user has given up on a busy host, all calls of that event fail.
void PlanWriter::takeBack() {
    bool known = true;
    if (work_.uncertain) {
        const RenameStep& step = work_.steps[work_.done];
        PlanRow& row = drawing()->rows[step.layout];
        std::wstring now;
        known = ignoringErrors([&] { now = row.layout.Name(); });
        work_.uncertain = !known;
        if (known && now == step.to) {
            noteName(row, now);
            ++work_.done;
        }
        if (!known) undoPart().unknown = {step.from, step.to};
    }
    while (known && work_.done > 0) {
        const RenameStep& step = work_.steps[work_.done - 1];
        if (put(step, step.from)) break;
        --work_.done;
    }
    work_.refusal->takenBack = known && work_.done == 0;
    phase_ = Phase::write;
    endDrawing();
    finishWhenDone();
}

void PlanWriter::endDrawing() {
    PlanDrawing& drawing = *this->drawing();
    std::vector<std::size_t> rows;
    rows.reserve(work_.steps.size());
    for (const RenameStep& step : work_.steps) rows.push_back(step.layout);
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<int> numbers;
    numbers.reserve(rows.size());
    for (const std::size_t row : rows) numbers.push_back(drawing.rows[row].number);
    reader_.readNames(drawing, rows);
    if (!work_.refusal) {
        result_.done += static_cast<int>(work_.job.names.size());
        return;
    }
    if (!work_.refusal->takenBack)
        for (const int number : numbers) work_.refusal->namesNow.push_back(plan_.find(number).row->name);
    if (result_.undoing) {
        result_.reasons.push_back(work_.refusal->text());
        return;
    }
    result_.refusal = *work_.refusal;
    finish(PlanWriteResult::End::refused);
}

void PlanWriter::finish(PlanWriteResult::End end) {
    result_.end = end;
    result_.doneText =
        std::to_wstring(result_.done) + (result_.done == 1 ? L" Layout umbenannt." : L" Layouts umbenannt.");
    jobs_.clear();
    phase_ = Phase::idle;
    result_.remains = undo_.settle();
}

}  // namespace blattwart
