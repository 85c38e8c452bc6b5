#include "planlist/frmPlanReihenfolge.h"

#include <algorithm>
#include <utility>

namespace blattwart {

namespace {

bool sameOrder(const TabOrder& a, const TabOrder& b) {
    return std::ranges::equal(a, b, {}, &TabOrderEntry::row, &TabOrderEntry::row);
}

}  // namespace

frmPlanReihenfolge::frmPlanReihenfolge(PlanList& plan, const std::vector<int>& rows, FirstStep step,
                                       basHTMLHelp& help, Platform& platform)
    : lvLayouts(platform.locale), plan_(plan), help_(help), locale_(platform.locale) {
    lvLayouts.setMode(ListViewMode::details);
    for (const auto& [header, width] : {std::pair{L"Layout", 1900.0F}, std::pair{L"Zeichnung", 1500.0F},
                                        std::pair{L"Nr. bisher", 1000.0F}, std::pair{L"Nr. neu", 900.0F}})
        lvLayouts.addColumn(header, width);
    lvLayouts.setColumnPositions({3, 0, 1, 2});
    for (PlanDrawing& drawing : plan.drawings()) {
        TabOrder order;
        for (const PlanRow& row : drawing.rows)
            order.push_back({row.number, row.name, std::ranges::find(rows, row.number) != rows.end()});
        if (std::ranges::any_of(order, &TabOrderEntry::selected))
            drawings_.push_back({drawing.identity, drawing.shownName, order, order});
    }
    lvLayouts.events.selectionChange = [this] { showState(); };
    cmdOben.events.click = [this] { move(moveToStart); };
    cmdUnten.events.click = [this] { move(moveToEnd); };
    cmdNamen.events.click = [this] { orderAllByName(); };
    cmdOK.events.click = [this] { cmdOK_Click(); };
    cmdCancel.events.click = [this] { window().close(); };
    show();
    for (const Drawing& drawing : drawings_)
        for (const TabOrderEntry& entry : drawing.order)
            if (entry.selected) lvLayouts.setSelected(*lvLayouts.find(PlanList::keyOf(entry.row)), true);
    lvLayouts.setFocused(lvLayouts.selected());
    if (step != FirstStep::none) move(step == FirstStep::up ? moveToStart : moveToEnd);
    showState();
}

void frmPlanReihenfolge::showHelp() {
    help_.ShowHelpTopic(helpTopic::orderLayouts);
}

std::function<void()> frmPlanReihenfolge::commandOf(const Shortcut& key, const Control*) {
    if (key == Shortcut{.key = Shortcut::up, .alt = true}) return [this] { cmdOben.userClicks(); };
    if (key == Shortcut{.key = Shortcut::down, .alt = true}) return [this] { cmdUnten.userClicks(); };
    return {};
}

void frmPlanReihenfolge::takeSelection() {
    const std::vector<ListItem*> selected = lvLayouts.selectedItems();
    for (Drawing& drawing : drawings_)
        for (TabOrderEntry& entry : drawing.order)
            entry.selected =
                std::ranges::find(selected, lvLayouts.find(PlanList::keyOf(entry.row))) != selected.end();
}

void frmPlanReihenfolge::move(bool (*step)(TabOrder&)) {
    for (Drawing& drawing : drawings_) step(drawing.order);
    show();
    showState();
    if (ListItem* first = lvLayouts.selected()) lvLayouts.ensureVisible(*first);
}

void frmPlanReihenfolge::orderAllByName() {
    for (Drawing& drawing : drawings_) orderByName(drawing.order, locale_);
    show();
    showState();
}

void frmPlanReihenfolge::show() {
    const Update<ListView> update(lvLayouts);
    lvLayouts.clear();
    for (const Drawing& drawing : drawings_) {
        int place = 0;
        for (const TabOrderEntry& entry : drawing.order) {
            ListItem& item = lvLayouts.add(PlanList::keyOf(entry.row), entry.name);
            const std::optional<std::int32_t> before = plan_.find(entry.row).row->tabOrder;
            item.setColumn(2, drawing.shownName);
            item.setColumn(3, before ? std::to_wstring(*before) : L"");
            item.setColumn(4, std::to_wstring(++place));
        }
    }
}

void frmPlanReihenfolge::showState() {
    takeSelection();
    const auto moves = [&](bool (*step)(TabOrder&)) {
        return std::ranges::any_of(drawings_, [&](const Drawing& drawing) {
            TabOrder tried = drawing.order;
            return step(tried);
        });
    };
    cmdOben.setEnabled(moves(moveToStart));
    cmdUnten.setEnabled(moves(moveToEnd));
    cmdOK.setEnabled(std::ranges::any_of(
        drawings_, [](const Drawing& drawing) { return !sameOrder(drawing.before, drawing.order); }));
}

void frmPlanReihenfolge::cmdOK_Click() {
    for (const Drawing& drawing : drawings_) {
        if (sameOrder(drawing.before, drawing.order)) continue;
        std::vector<std::wstring> names;
        for (const TabOrderEntry& entry : drawing.order) names.push_back(entry.name);
        orders_.push_back({drawing.identity, std::move(names)});
    }
    window().close();
}

}  // namespace blattwart
