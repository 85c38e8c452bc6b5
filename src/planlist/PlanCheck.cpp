#include <algorithm>

#include "planlist/HostFacts.h"
#include "planlist/PlanReader.h"

/// What PlanReader asks before anything is written.
namespace blattwart {

PlanReader::Check PlanReader::check(std::span<const std::wstring> drawings) {
    LongRead watch(platform_.readings);
    try {
        return checkDrawings(drawings, watch);
    } catch (const RuntimeError&) {
        return {Check::Result::noAnswer, {}};
    }
}

PlanReader::Check PlanReader::checkDrawings(std::span<const std::wstring> drawings, LongRead& watch) {
    if (commandRuns(drawings)) return {Check::Result::commandRunning, {}};
    Check check;
    std::vector<std::wstring> different;
    for (const std::wstring& identity : drawings) {
        PlanDrawing* drawing = plan_.findDrawing(identity);
        const Outcome outcome = drawing ? compare(*drawing, watch) : Outcome::closed;
        if (outcome == Outcome::ended) return {Check::Result::cancelled, {}};
        if (outcome == Outcome::noAnswer) return {Check::Result::noAnswer, {}};
        if (outcome == Outcome::read) continue;
        different.push_back(identity);
        check.changed.push_back(drawing ? drawing->shownName : identity);
    }
    if (different.empty()) return check;
    check.result = Check::Result::changed;
    for (const std::wstring& identity : different) readAgain(identity, watch);
    findPapers();
    return check;
}

bool PlanReader::commandRuns(std::span<const std::wstring> drawings) {
    const auto isActive = [](const host::Document& document) {
        return document.GetVariable(L"CMDACTIVE") != 0;
    };
    bool active = false;
    readFact(active, [&] { return isActive(autoCAD_.gAcadApp.ActiveDocument()); });
    for (const std::wstring& identity : drawings) {
        const PlanDrawing* drawing = plan_.findDrawing(identity);
        if (active || !drawing) continue;
        try {
            readFact(active, [&] { return isActive(drawing->document); });
        } catch (const RuntimeError& error) {
            if (!isClosed(error)) throw;
        }
    }
    return active;
}

/// `read` when the drawing is as in the list, `failed` when it differs.
PlanReader::Outcome PlanReader::compare(PlanDrawing& drawing, LongRead& watch) {
    try {
        const PlanDrawing now = openDrawing(drawing.document);
        if (now.fullName() != drawing.fullName()) return Outcome::failed;
        std::size_t known = 0;
        for (const host::Layout& layout : drawing.document.Layouts().all()) {
            if (!watch.goOn()) return Outcome::ended;
            const std::wstring name = layout.Name();
            const auto row = std::ranges::find(drawing.rows, name, &PlanRow::name);
            if (row == drawing.rows.end()) {
                if (name != drawing.modelName) return Outcome::failed;
                continue;
            }
            row->layout = layout;
            ++known;
        }
        return known == drawing.rows.size() ? Outcome::read : Outcome::failed;
    } catch (const RuntimeError& error) {
        if (isClosed(error)) return Outcome::closed;
        return Outcome::noAnswer;
    }
}

/// A drawing that was closed goes from the list; one that was saved under another name is another one.
void PlanReader::readAgain(const std::wstring& identity, LongRead& watch) {
    PlanDrawing* drawing = plan_.findDrawing(identity);
    if (!drawing) return;
    const host::Document document = drawing->document;
    PlanDrawing now;
    try {
        now = openDrawing(document);
    } catch (const RuntimeError&) {
        plan_.remove(std::span(&identity, 1));
        return;
    }
    if (now.fullName() != drawing->fullName()) {
        std::vector<PlanDrawing> open(plan_.drawings().begin(), plan_.drawings().end());
        PlanDrawing& renamed = *std::ranges::find(open, identity, &PlanDrawing::identity);
        renamed.folder = now.folder;
        renamed.name = now.name;
        plan_.setDrawings(std::move(open));
        drawing = &*std::ranges::find_if(
            plan_.drawings(), [&](const PlanDrawing& each) { return each.fullName() == now.fullName(); });
    }
    if (readDrawing(*drawing, watch) != Outcome::read) {
        const std::wstring unread = drawing->identity;
        plan_.remove(std::span(&unread, 1));
    }
}

}  // namespace blattwart
