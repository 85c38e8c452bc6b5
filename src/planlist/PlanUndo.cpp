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

std::size_t DrawingNamesChanged::layouts() const {
    const bool another =
        unknown && std::ranges::find(names, unknown->before, &NameChanged::now) == names.end();
    return names.size() + (another ? 1 : 0);
}

namespace {

template <class Part>
Part& partOf(std::vector<Part>& parts, const std::wstring& drawing, const std::wstring& shownName) {
    const auto known = std::ranges::find(parts, drawing, &Part::drawing);
    if (known != parts.end()) return *known;
    Part added;
    added.drawing = drawing;
    added.shownName = shownName;
    return parts.emplace_back(std::move(added));
}

}  // namespace

DrawingNamesChanged& PlanUndoEntry::namesOf(const std::wstring& drawing, const std::wstring& shownName) {
    return partOf(names, drawing, shownName);
}

OrderChanged& PlanUndoEntry::orderOf(const std::wstring& drawing, const std::wstring& shownName) {
    return partOf(orders, drawing, shownName);
}

std::wstring PlanUndoEntry::text() const {
    if (!orders.empty()) {
        if (orders.size() == 1) return L"Reihenfolge in 1 Zeichnung geändert";
        return L"Reihenfolge in " + std::to_wstring(orders.size()) + L" Zeichnungen geändert";
    }
    if (!settings.empty()) {
        if (settings.size() == 1) return L"Seiteneinrichtung auf 1 Layout übertragen";
        return L"Seiteneinrichtung auf " + std::to_wstring(settings.size()) + L" Layouts übertragen";
    }
    std::size_t layouts = 0;
    for (const DrawingNamesChanged& drawing : names) layouts += drawing.layouts();
    return std::to_wstring(layouts) + (layouts == 1 ? L" Layout umbenannt" : L" Layouts umbenannt");
}

bool PlanUndo::settle() {
    if (empty()) return false;
    std::erase_if(top().names, [](const DrawingNamesChanged& drawing) {
        return drawing.names.empty() && !drawing.unknown;
    });
    std::erase_if(top().orders, [](const OrderChanged& order) { return order.now == order.before; });
    std::erase_if(top().settings, [](const SettingsChanged& changed) {
        return changed.now && differences(changed.before, *changed.now).empty();
    });
    const bool remains = !top().names.empty() || !top().orders.empty() || !top().settings.empty();
    if (!remains) pop();
    return remains;
}

}  // namespace blattwart
