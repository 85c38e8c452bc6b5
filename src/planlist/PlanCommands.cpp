#include "planlist/PlanCommands.h"

namespace blattwart {

std::wstring showLayout(basAutoCAD& autoCAD, PlanReader& reader, const PlanList::Place& place) {
    try {
        autoCAD.activate(place.drawing->document);
        place.drawing->document.putActiveLayout(place.row->layout);
    } catch (const RuntimeError& error) {
        const bool closed = reader.isClosed(error);
        return L"Das Layout „" + place.row->name + L"“ kann nicht angezeigt werden: " +
               (closed ? L"„" + place.drawing->shownName + L"“ ist nicht mehr geöffnet."
                       : error.description());
    }
    reader.readState(*place.drawing);
    autoCAD.BringAutoCADToFront();
    return {};
}

namespace {

/// Why a drawing stays as it is; "" when it is saved or has nothing to be saved.
std::wstring saved(PlanDrawing& drawing, PlanReader& reader, int& count) {
    // The list may be older than the changes.
    if (!reader.readState(drawing)) return L"AutoCAD antwortet nicht";
    if (!drawing.changed) return {};
    if (!drawing.everSaved()) return L"nie gespeichert";
    if (drawing.readOnly) return L"schreibgeschützt";
    try {
        drawing.document.Save();
        drawing.changed = false;
        ++count;
        return {};
    } catch (const RuntimeError& error) {
        return error.description();
    }
}

}  // namespace

PlanSaveResult saveDrawings(PlanList& plan, PlanReader& reader, const std::vector<std::wstring>& drawings) {
    PlanSaveResult result;
    result.check = PlanWriteResult::of(reader.check(drawings));
    if (result.check.end != PlanWriteResult::End::done) return result;
    for (const std::wstring& identity : drawings) {
        PlanDrawing& drawing = *plan.findDrawing(identity);
        const std::wstring reason = saved(drawing, reader, result.saved);
        if (!reason.empty()) result.notSaved.push_back(drawing.shownName + L": " + reason);
    }
    return result;
}

std::wstring PlanSaveResult::message() const {
    if (notSaved.empty()) return check.message();
    std::wstring text = L"Nicht gespeichert:";
    for (const std::wstring& line : notSaved) text += L"\n" + line;
    return text;
}

std::wstring PlanSaveResult::statusText() const {
    if (check.end != PlanWriteResult::End::done) return {};
    return std::to_wstring(saved) + (saved == 1 ? L" Zeichnung gespeichert." : L" Zeichnungen gespeichert.");
}

}  // namespace blattwart
