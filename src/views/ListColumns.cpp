#include "views/ListColumns.h"

#include <algorithm>
#include <set>

#include "platform/Conversions.h"
#include "platform/NumberSetting.h"

namespace blattwart {

struct ListColumns::ColumnSet {
    NodeKind nodeKind;
    const wchar_t* title;
    std::vector<const wchar_t*> headers;
    std::int32_t defaultWidth;
};

const std::array<ListColumns::ColumnSet, 5>& ListColumns::columnSets() {
    static const std::array<ColumnSet, 5> sets{{
        {NodeKind::loadedDrawings, L"Zeichnungen:", {L"Dateiname"}, 5000},
        {NodeKind::drawing,
         L"Layouts:",
         {L"Bezeichnung", L"Plotgerät", L"Papierformat", L"Ausrichtung", L"Plotstil"},
         2500},
        {NodeKind::layout, L"Layout-Details:", {L"Beschreibung", L"Wert"}, 2500},
        {NodeKind::library, L"Vorlagen:", {L"Dateiname"}, 5000},
        {NodeKind::libraryFile, L"Vorlage-Details:", {L"Beschreibung", L"Wert"}, 2500},
    }};
    return sets;
}

ListKind listKindOf(NodeKind nodeKind) {
    // The kinds of lists stand in the order of the nodes' kinds.
    return static_cast<ListKind>(nodeKind);
}

namespace {

std::wstring widthKey(std::size_t kind, std::size_t column) {
    return L"Col_" + std::to_wstring(kind) + L"_" + std::to_wstring(column);
}

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator) {
    std::vector<std::wstring> elements;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = text.find(separator, begin);
        elements.push_back(text.substr(begin, end - begin));
        if (end == std::wstring_view::npos) return elements;
        begin = end + 1;
    }
}

}  // namespace

ListColumns::ListColumns(ListView& list, Label& title, Platform& platform)
    : list_(list), title_(title), platform_(platform) {
    for (std::size_t i = 0; i < widths_.size(); ++i)
        widths_[i].assign(columnSets()[i].headers.size(), columnSets()[i].defaultWidth);
}

void ListColumns::LoadColumnWidths() {
    for (std::size_t i = 0; i < widths_.size(); ++i) {
        const std::wstring defaultText = std::to_wstring(columnSets()[i].defaultWidth);
        for (std::size_t column = 0; column < widths_[i].size(); ++column) {
            const std::wstring key = widthKey(i + 1, column);
            const std::int32_t width = wholeSetting(platform_.settings, key, defaultText);
            if (width >= 0) widths_[i][column] = width;
        }
    }
}

void ListColumns::SaveColumnWidths() {
    for (std::size_t i = 0; i < widths_.size(); ++i)
        for (std::size_t column = 0; column < widths_[i].size(); ++column)
            ignoringErrors([&] {
                platform_.settings.set(widthKey(i + 1, column), std::to_wstring(widths_[i][column]));
            });
}

void ListColumns::StoreColumnWidths() {
    if (ListMode == ListKind::none) return;
    std::vector<std::int32_t>& kept = widths(ListMode);
    for (std::size_t i = 0; i < kept.size() && i < list_.columns().size(); ++i)
        ignoringErrors([&] { kept[i] = toInt32(static_cast<double>(list_.columns()[i].width)); });
}

void ListColumns::setHeaders(ListKind kind) {
    ListMode = kind;
    list_.clearColumns();
    const ColumnSet& set = columnSets()[static_cast<std::size_t>(kind) - 1];
    const auto& [sortKey, sortOrder] = sorting_[static_cast<std::size_t>(kind) - 1];
    list_.setSortKey(sortKey);
    list_.setSortOrder(sortOrder);
    title_.setText(set.title);
    for (std::size_t i = 0; i < set.headers.size(); ++i)
        list_.addColumn(set.headers[i], static_cast<float>(widths(kind)[i]));
}

void ListColumns::leave() {
    if (ListMode == ListKind::none) return;
    StoreColumnWidths();
    sorting_[static_cast<std::size_t>(ListMode) - 1] = {list_.sortKey(), list_.sortOrder()};
    SaveColumnOrder(kindLetter(columnSets()[static_cast<std::size_t>(ListMode) - 1].nodeKind));
}

void ListColumns::RestoreColumnOrder(const std::wstring& prefix) {
    ignoringErrors([&] { SetColumnOrder(platform_.settings.get(L"ColOrder" + prefix, L"")); });
}

void ListColumns::SaveColumnOrder(const std::wstring& prefix) {
    ignoringErrors([&] { platform_.settings.set(L"ColOrder" + prefix, GetColumnOrder()); });
}

std::wstring ListColumns::GetColumnOrder() const {
    std::wstring text;
    for (const ListColumn& column : list_.columns()) {
        if (!text.empty()) text += L",";
        text += std::to_wstring(column.position);
    }
    return text;
}

void ListColumns::SetColumnOrder(const std::wstring& text) {
    if (text.empty()) return;
    const int count = static_cast<int>(list_.columns().size());
    std::vector<int> positions;
    try {
        for (const std::wstring& element : split(text, L',')) {
            const int position = toInt32(plainNumber(element));
            if (static_cast<int>(positions.size()) == count || position < 0 || position >= count)
                throw RuntimeError(errorNumber::invalidCall, L"Die gespeicherte Spaltenfolge ist ungültig.");
            positions.push_back(position);
        }
    } catch (const RuntimeError&) {
        placeColumns(positions);
        throw;
    }
    placeColumns(positions);
}

// Gives the first columns these positions. Moving one column after the other displaces those placed before,
// so distinct positions are filled at once, the remaining columns keeping their sequence in the gaps.
void ListColumns::placeColumns(const std::vector<int>& positions) {
    if (std::set<int>(positions.begin(), positions.end()).size() != positions.size()) {
        for (std::size_t i = 0; i < positions.size(); ++i)
            list_.setColumnPosition(static_cast<int>(i) + 1, positions[i]);
        return;
    }
    const std::vector<ListColumn>& columns = list_.columns();
    std::vector<std::size_t> others;
    for (std::size_t i = positions.size(); i < columns.size(); ++i) others.push_back(i);
    std::ranges::sort(others, {}, [&](std::size_t i) { return columns[i].position; });

    std::vector<int> result(positions);
    result.resize(columns.size());
    auto other = others.begin();
    for (int place = 0; place < static_cast<int>(columns.size()); ++place)
        if (std::ranges::find(positions, place) == positions.end()) result[*other++] = place;
    list_.setColumnPositions(result);
}

}  // namespace blattwart
