#include "planlist/TransferPreview.h"

#include <algorithm>

namespace blattwart {

namespace {

constexpr std::array shownProperties{PlotProperty::device, PlotProperty::paper, PlotProperty::orientation,
                                     PlotProperty::style,  PlotProperty::scale, PlotProperty::area};

/// The readable name of the paper where it is that of the row.
std::wstring cellText(const PlanRow& row, const PlotSettings& settings, PlotProperty property,
                      const Locale& locale) {
    if (property == PlotProperty::paper && settings.paper == row.canonicalPaper) return row.paper;
    return plotPropertyText(settings, property, locale);
}

void addNote(std::wstring& notes, const std::wstring& note) {
    notes += (notes.empty() ? L"" : L"; ") + note;
}

std::wstring unreadNote(const PlotSettings& settings) {
    std::wstring note;
    for (const PlotProperty property : unread(settings))
        addNote(note, plotPropertyName(property) + L" nicht lesbar");
    return note;
}

TransferPreviewRow untouchedRow(const PlanList::Place& place) {
    TransferPreviewRow row;
    row.row = place.row->number;
    row.drawing = place.drawing->shownName;
    row.layout = place.row->name;
    return row;
}

TransferPreviewRow sourceRowOf(const PlanList::Place& place, const PlotSettings& settings,
                               const Locale& locale) {
    TransferPreviewRow row = untouchedRow(place);
    for (std::size_t i = 0; i < shownProperties.size(); ++i)
        row.cells[i] = cellText(*place.row, settings, shownProperties[i], locale);
    row.note = L"Quelle";
    const std::wstring notRead = unreadNote(settings);
    if (!notRead.empty()) addNote(row.note, notRead);
    return row;
}

TransferPreviewRow targetRowOf(const PlanList::Place& source, const PlotSettings& settings,
                               const PlanList::Place& place, const PlotSettings& present,
                               const Locale& locale) {
    TransferPreviewRow row = untouchedRow(place);
    const bool sameDrawing = source.drawing == place.drawing;
    const bool possible = sameDrawing || canCross(settings);
    const PlotSettings wanted = possible ? settingsToTake(settings, sameDrawing) : present;
    const std::vector<PlotProperty> missing = differences(wanted, present);
    row.changes = !missing.empty();
    for (std::size_t i = 0; i < shownProperties.size(); ++i) {
        const PlotProperty property = shownProperties[i];
        row.cells[i] = cellText(*place.row, present, property, locale);
        if (std::ranges::find(missing, property) != missing.end())
            row.cells[i] = changeText(row.cells[i], cellText(*source.row, wanted, property, locale));
    }
    if (!possible) addNote(row.note, L"nicht übertragen: die Quelle hat kein Plotgerät");
    if (!sameDrawing && settings.area == plotArea::view)
        addNote(row.note, L"Plotbereich „Ansicht“ bleibt in seiner Zeichnung");
    if (row.changes && wanted.hasDevice() && !present.hasDevice())
        addNote(row.note, L"Plotgerät und Papier nicht rückgängig zu machen");
    const std::wstring notRead = unreadNote(present);
    if (!notRead.empty()) addNote(row.note, notRead);
    if (row.note.empty() && !row.changes) row.note = L"unverändert";
    return row;
}

}  // namespace

PlotSettings settingsToTake(const PlotSettings& source, bool sameDrawing) {
    PlotSettings taken = source;
    if (!sameDrawing && source.area == plotArea::view) taken.area.reset();
    return taken;
}

bool canCross(const PlotSettings& source) {
    return source.hasDevice();
}

TransferPreview previewTransfer(PlanList& plan, int sourceRow, std::span<const int> targetRows,
                                const SettingsByRow& settings, const Locale& locale) {
    TransferPreview preview;
    const PlanList::Place source = plan.find(sourceRow);
    const auto known = settings.find(sourceRow);
    if (!source || known == settings.end()) return preview;
    preview.rows.push_back(sourceRowOf(source, known->second, locale));
    preview.unread = !unread(known->second).empty();
    for (const int number : targetRows) {
        const PlanList::Place place = plan.find(number);
        const auto present = settings.find(number);
        if (!place || present == settings.end() || number == sourceRow) continue;
        preview.rows.push_back(targetRowOf(source, known->second, place, present->second, locale));
        preview.unread = preview.unread || !unread(present->second).empty();
        if (preview.rows.back().changes) ++preview.changes;
    }
    return preview;
}

}  // namespace blattwart
