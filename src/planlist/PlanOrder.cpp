#include "planlist/PlanOrder.h"

#include <algorithm>

#include "planlist/HostFacts.h"
#include "planlist/TabOrderPlan.h"

namespace blattwart {

using End = PlanWriteResult::End;

namespace {

std::wstring notRead(const RuntimeError& error) {
    return L"Die Reihenfolge kann nicht gelesen werden: " + error.description();
}

}  // namespace

void PlanOrder::begin(const std::vector<NewOrder>& orders) {
    std::vector<Job> jobs;
    for (const NewOrder& order : orders) {
        PlanDrawing* drawing = plan_.findDrawing(order.drawing);
        if (drawing && present(*drawing) != order.names)
            jobs.push_back({order.drawing, drawing->shownName, order.names});
    }
    start(std::move(jobs), false);
    phase_ = Phase::check;
}

void PlanOrder::beginUndo() {
    std::vector<Job> jobs;
    for (const OrderChanged& changed : undo_.top().orders)
        jobs.push_back({changed.drawing, changed.shownName, changed.before});
    start(std::move(jobs), true);
    result_.what = undo_.top().text();
    phase_ = Phase::write;
}

void PlanOrder::start(std::vector<Job> jobs, bool undoing) {
    jobs_ = std::move(jobs);
    std::ranges::reverse(jobs_);
    result_ = {};
    result_.undoing = undoing;
    result_.chosen = static_cast<int>(jobs_.size());
    result_.doneText = L"Reihenfolge geändert.";
    activeDrawing_.clear();
}

bool PlanOrder::step() {
    if (phase_ == Phase::check) {
        checkAll();
    } else if (phase_ == Phase::write) {
        nextDrawing();
    } else if (phase_ == Phase::takeBack) {
        takeBack();
    }
    return phase_ != Phase::idle;
}

void PlanOrder::stop() {
    jobs_.clear();
    if (phase_ == Phase::check || phase_ == Phase::write) finish(End::cancelled);
}

void PlanOrder::checkAll() {
    std::vector<std::wstring> drawings;
    for (const Job& job : jobs_) drawings.push_back(job.drawing);
    const PlanWriteResult check = PlanWriteResult::of(reader_.check(drawings));
    result_.drawings = check.drawings;
    if (check.end != End::done) return finish(check.end);
    try {
        for (const Job& job : jobs_)
            if (!isAsShown(*plan_.findDrawing(job.drawing))) result_.drawings.push_back(job.shownName);
    } catch (const RuntimeError& error) {
        if (isSilence(error)) return finish(End::noAnswer);
        result_.reasons = {notRead(error)};
        return finish(End::otherwise);
    }
    if (!result_.drawings.empty()) return finish(End::changedInHost);
    undo_.push();
    phase_ = Phase::write;
}

/// What the user has moved is what the list showed, and what is taken back, too.
bool PlanOrder::isAsShown(PlanDrawing& drawing) {
    const std::vector<std::wstring> shown = present(drawing);
    for (PlanRow& row : drawing.rows) row.tabOrder = row.layout.TabOrder();
    return present(drawing) == shown;
}

void PlanOrder::nextDrawing() {
    if (!jobs_.empty()) {
        job_ = std::move(jobs_.back());
        jobs_.pop_back();
        if (result_.undoing) {
            const End end = PlanWriteResult::of(reader_.check(std::span(&job_.drawing, 1))).end;
            // A drawing that was changed may fit all the same.
            if (end != End::done && end != End::changedInHost) return finish(end);
        }
        write(job_);
    }
    if (phase_ != Phase::write || !jobs_.empty()) return;
    if (result_.reasons.empty()) return finish(End::done);
    finish(result_.undoing ? End::partly : End::otherwise);
}

/// The names in the order of the tabs.
std::vector<std::wstring> PlanOrder::present(PlanDrawing& drawing) {
    plan_.arrange(drawing);
    std::vector<std::wstring> names;
    for (const PlanRow& row : drawing.rows) names.push_back(row.name);
    return names;
}

/// Whether the drawing still has the order that is to be taken back.
bool PlanOrder::fits(PlanDrawing& drawing) {
    const std::vector<std::wstring>& now = undoPart().now;
    for (PlanRow& row : drawing.rows) row.tabOrder = row.layout.TabOrder();
    std::vector<std::wstring> names = present(drawing);
    if (!now.empty()) return names == now;
    // What became of it was not known; then the same names are enough.
    std::vector<std::wstring> wanted = job_.names;
    std::ranges::sort(names);
    std::ranges::sort(wanted);
    return names == wanted;
}

void PlanOrder::write(const Job& job) {
    PlanDrawing* drawing = plan_.findDrawing(job.drawing);
    if (!drawing) {
        result_.reasons.push_back(L"„" + job.shownName + L"“ ist nicht mehr geöffnet.");
        return;
    }
    before_.clear();
    try {
        if (result_.undoing && !fits(*drawing)) {
            result_.reasons.push_back(L"Die Reihenfolge in „" + job.shownName +
                                      L"“ wurde inzwischen geändert.");
            return;
        }
        before_ = present(*drawing);
        if (!result_.undoing) undoPart().before = before_;
        const bool reached = put(*drawing, job.names);
        undoPart().now = present(*drawing);
        if (!reached)
            result_.reasons.push_back(L"AutoCAD hat die Reihenfolge in „" + job.shownName +
                                      L"“ nicht wie gewünscht übernommen. Die Planliste zeigt den jetzigen "
                                      L"Stand.");
        if (reached) ++result_.done;
        repaint(*drawing);
        reader_.readState(*drawing);
    } catch (const RuntimeError& error) {
        if (reader_.isClosed(error)) {
            result_.reasons.push_back(L"„" + job.shownName + L"“ ist nicht mehr geöffnet.");
        } else if (!before_.empty()) {
            phase_ = Phase::takeBack;
        } else if (isSilence(error)) {
            finish(End::noAnswer);
        } else {
            result_.reasons.push_back(L"„" + job.shownName + L"“: " + notRead(error));
        }
    }
}

/// In an event of its own: where the user has given up on a busy host, all calls of that event fail.
void PlanOrder::takeBack() {
    OrderChanged& part = undoPart();
    part.now.clear();
    ignoringErrors([&] {
        if (put(*plan_.findDrawing(job_.drawing), before_)) part.now = before_;
    });
    if (part.now.empty())
        result_.reasons = {L"Die Reihenfolge in „" + job_.shownName +
                           L"“ ist vielleicht nur zum Teil geändert. „Rückgängig“ stellt die alte her."};
    finish(End::noAnswer);
}

bool PlanOrder::put(PlanDrawing& drawing, const std::vector<std::wstring>& names) {
    std::vector<PlanRow*> rows;
    rows.reserve(names.size());
    for (const std::wstring& name : names) rows.push_back(plan_.findRow(drawing, name));
    const TabNumbers numbers{[&](std::size_t i, std::int32_t number) { rows[i]->layout.putTabOrder(number); },
                             [&](std::size_t i) {
                                 const std::int32_t number = rows[i]->layout.TabOrder();
                                 rows[i]->tabOrder = number;
                                 return number;
                             }};
    const bool reached = writeTabOrder(rows.size(), numbers);
    plan_.arrange(drawing);
    return reached;
}

/// The host draws its tabs anew when a layout is made the current one.
void PlanOrder::repaint(const PlanDrawing& drawing) {
    ignoringErrors([&] {
        if (activeDrawing_.empty())
            activeDrawing_ = openDrawing(autoCAD_.gAcadApp.ActiveDocument()).fullName();
        if (activeDrawing_ == drawing.fullName())
            drawing.document.putActiveLayout(drawing.document.ActiveLayout());
    });
}

void PlanOrder::finish(End end) {
    result_.end = end;
    jobs_.clear();
    phase_ = Phase::idle;
    result_.remains = undo_.settle();
}

}  // namespace blattwart
