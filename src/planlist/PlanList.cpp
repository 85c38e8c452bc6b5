#include "planlist/PlanList.h"

#include <algorithm>
#include <limits>
#include <set>

#include "planlist/PlanFilter.h"
#include "views/PlotTexts.h"

namespace blattwart {

namespace {

std::wstring lastFolder(const std::wstring& folder) {
    return folder.substr(folder.find_last_of(L"\\/") + 1);
}

}  // namespace

PlanDrawing* PlanList::findDrawing(std::wstring_view identity) {
    const auto found = std::ranges::find(drawings_, identity, &PlanDrawing::identity);
    return found == drawings_.end() ? nullptr : &*found;
}

PlanList::Place PlanList::find(int rowNumber) {
    for (PlanDrawing& drawing : drawings_) {
        const auto found = std::ranges::find(drawing.rows, rowNumber, &PlanRow::number);
        if (found != drawing.rows.end()) return {&drawing, &*found};
    }
    return {};
}

PlanRow* PlanList::findRow(PlanDrawing& drawing, std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        drawing.rows, [&](const PlanRow& row) { return locale_.equalIgnoringCase(row.name, name); });
    return found == drawing.rows.end() ? nullptr : &*found;
}

int PlanList::layoutCount() const {
    std::size_t count = 0;
    for (const PlanDrawing& drawing : drawings_)
        if (drawing.complete) count += drawing.rows.size();
    return static_cast<int>(count);
}

void PlanList::setDrawings(std::vector<PlanDrawing> open) {
    std::map<std::wstring, int> seen;
    for (PlanDrawing& drawing : open) {
        drawing.identity = locale_.upperCase(drawing.fullName());
        const int ordinal = ++seen[drawing.identity];
        // No path holds this character.
        if (ordinal > 1) drawing.identity += L"|" + std::to_wstring(ordinal);
        if (PlanDrawing* known = findDrawing(drawing.identity)) {
            known->folder = std::move(drawing.folder);
            known->name = std::move(drawing.name);
            known->document = std::move(drawing.document);
            drawing = std::move(*known);
        }
    }
    drawings_ = std::move(open);
    nameDrawings();
}

void PlanList::nameDrawings() {
    const auto named = [&](const PlanDrawing& drawing) { return locale_.upperCase(drawing.name); };
    std::map<std::wstring, std::set<std::wstring>> folders;                        // by name
    std::map<std::pair<std::wstring, std::wstring>, std::set<std::wstring>> full;  // by name and last folder
    for (const PlanDrawing& drawing : drawings_) {
        const std::wstring folder = locale_.upperCase(drawing.folder);
        folders[named(drawing)].insert(folder);
        full[{named(drawing), lastFolder(folder)}].insert(folder);
    }
    std::map<std::wstring, int> shown;
    for (PlanDrawing& drawing : drawings_) {
        drawing.shownName = drawing.name;
        const std::wstring folder = lastFolder(drawing.folder);
        if (drawing.everSaved() && folders[named(drawing)].size() > 1) {
            const bool enough = full[{named(drawing), locale_.upperCase(folder)}].size() == 1;
            drawing.shownName += L" (" + (enough ? folder : drawing.folder) + L")";
        }
        const int ordinal = ++shown[locale_.upperCase(drawing.fullName())];
        if (ordinal > 1) drawing.shownName += L" (" + std::to_wstring(ordinal) + L")";
    }
    std::ranges::stable_sort(drawings_, [&](const PlanDrawing& a, const PlanDrawing& b) {
        return locale_.compareNaturally(a.shownName, b.shownName) < 0;
    });
}

void PlanList::setRows(PlanDrawing& drawing, std::vector<PlanRow> rows) {
    std::set<int> taken;
    for (PlanRow& row : rows) {
        row.number = numberFor(drawing, row.name);
        // A host that has two layouts of one name shows two rows.
        if (!taken.insert(row.number).second) row.number = ++lastNumber_;
    }
    drawing.rows = std::move(rows);
    drawing.complete = true;
    arrange(drawing);
}

void PlanList::remove(std::span<const std::wstring> identities) {
    std::erase_if(drawings_, [&](const PlanDrawing& drawing) {
        return std::ranges::find(identities, drawing.identity) != identities.end();
    });
}

void PlanList::rename(const PlanDrawing& drawing, PlanRow& row, const std::wstring& name) {
    numbers_.erase(rowIdentity(drawing, row.name));
    numbers_[rowIdentity(drawing, name)] = row.number;
    row.name = name;
}

void PlanList::arrange(PlanDrawing& drawing) const {
    constexpr std::int32_t last = std::numeric_limits<std::int32_t>::max();
    std::ranges::sort(drawing.rows, [&](const PlanRow& a, const PlanRow& b) {
        const std::int32_t placeA = a.tabOrder.value_or(last);
        const std::int32_t placeB = b.tabOrder.value_or(last);
        return placeA != placeB ? placeA < placeB : locale_.compareNaturally(a.name, b.name) < 0;
    });
}

void PlanList::letGo() {
    for (PlanDrawing& drawing : drawings_) {
        drawing.document = {};
        for (PlanRow& row : drawing.rows) row.layout = {};
    }
}

std::wstring PlanList::rowIdentity(const PlanDrawing& drawing, std::wstring_view name) const {
    return drawing.identity + L"\n" + locale_.upperCase(name);
}

int PlanList::numberFor(const PlanDrawing& drawing, std::wstring_view name) {
    int& number = numbers_[rowIdentity(drawing, name)];
    if (number == 0) number = ++lastNumber_;
    return number;
}

bool PlanList::isCurrent(const PlanDrawing& drawing, const PlanRow& row) const {
    return drawing.currentLayout && locale_.equalIgnoringCase(*drawing.currentLayout, row.name);
}

std::wstring PlanList::statusText(const PlanDrawing& drawing, const PlanRow& row) const {
    std::wstring text;
    const auto add = [&](bool applies, const wchar_t* word) {
        if (!applies) return;
        if (!text.empty()) text += L", ";
        text += word;
    };
    add(isCurrent(drawing, row), L"aktuell");
    add(drawing.changed, L"geändert");
    add(!drawing.everSaved(), L"nie gespeichert");
    add(drawing.readOnly, L"schreibgeschützt");
    return text;
}

std::vector<std::wstring> PlanList::cells(const PlanDrawing& drawing, const PlanRow& row) const {
    return {row.name,
            drawing.shownName,
            row.tabOrder ? std::to_wstring(*row.tabOrder) : L"",
            row.device.value_or(L""),
            row.paper,
            row.styleSheet ? plotStyleText(*row.styleSheet) : L"",
            statusText(drawing, row)};
}

void PlanList::fill(ListView& list, std::wstring_view filter) const {
    const PlanFilter wanted(filter, locale_);
    const Update<ListView> update(list);
    list.clear();
    for (const PlanDrawing& drawing : drawings_) {
        if (!drawing.complete) continue;
        for (const PlanRow& row : drawing.rows) {
            const std::vector<std::wstring> texts = cells(drawing, row);
            if (!wanted.accepts(texts)) continue;
            ListItem& item = list.add(keyOf(row), texts.front());
            for (int column = 2; column <= planColumns; ++column)
                item.setColumn(column, texts[static_cast<std::size_t>(column) - 1]);
            item.setBold(isCurrent(drawing, row));
        }
    }
}

}  // namespace blattwart
