#include "planlist/PlanUndo.h"

#include <algorithm>

namespace blattwart {

void DrawingNamesChanged::note(const std::wstring& from, const std::wstring& to) {
    const auto known = std::ranges::find(names, from, &NameChanged::now);
    if (known == names.end()) {
        names.push_back({from, to});
    } else {
        known->now = to;
        if (known->before == to) names.erase(known);
    }
}

DrawingNamesChanged& PlanUndoEntry::of(const std::wstring& drawing, const std::wstring& shownName) {
    const auto known = std::ranges::find(names, drawing, &DrawingNamesChanged::drawing);
    if (known != names.end()) return *known;
    DrawingNamesChanged added;
    added.drawing = drawing;
    added.shownName = shownName;
    return names.emplace_back(std::move(added));
}

std::wstring PlanUndoEntry::text() const {
    std::size_t layouts = 0;
    for (const DrawingNamesChanged& drawing : names) layouts += drawing.names.size();
    return std::to_wstring(layouts) + (layouts == 1 ? L" Layout umbenannt" : L" Layouts umbenannt");
}

void PlanUndo::settle() {
    if (empty()) return;
    std::erase_if(top().names, [](const DrawingNamesChanged& drawing) {
        return drawing.names.empty() && !drawing.unknown;
    });
    if (top().names.empty()) pop();
}

}  // namespace blattwart
