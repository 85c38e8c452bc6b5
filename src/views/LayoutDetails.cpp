#include "views/LayoutDetails.h"

#include <array>
#include <optional>

#include "platform/Conversions.h"
#include "views/ListIcons.h"
#include "views/PlotTexts.h"

namespace blattwart {

namespace {

struct Row {
    const wchar_t* key;
    const wchar_t* caption;
};
constexpr std::array<Row, 10> rows{{{L"ILayoutname", L"Layoutname"},
                                    {L"IPlotter", L"Plotter"},
                                    {L"IPapierformat", L"Papierformat"},
                                    {L"IPapiergroesse", L"Papiergröße"},
                                    {L"IAusrichtung", L"Ausrichtung"},
                                    {L"IPlotstil", L"Plotstiltabelle"},
                                    {L"IPlotbereich", L"Plotbereich"},
                                    {L"IStempel", L"Stempelfeld"},
                                    {L"INordpfeil", L"Nordpfeil"},
                                    {L"ILegende", L"Legende"}}};

// A block reference whose extended data hold `marker` under type 0 fills the row with the label of the
// definition of type `typeId` that has its block's name.
struct Slot {
    std::int16_t marker;
    std::int32_t typeId;
    const wchar_t* row;
};
constexpr std::array<Slot, 3> slots{{{8, 2, L"IStempel"}, {9, 4, L"INordpfeil"}, {14, 7, L"ILegende"}}};

constexpr const wchar_t* notPresent = L"Nicht vorhanden";

/// Of a viewport's scale, paper to model; 0 when the host gives none.
double scaleFactor(double customScale) {
    return customScale > 0 ? 1 / customScale : 0;
}

bool isBlockReference(const std::wstring& objectName) {
    return objectName == L"AcDbBlockReference" || objectName == L"AcDbMInsertBlock";
}

}  // namespace

/// What the layout's block holds of the system's own.
struct LayoutDetails::Contents {
    std::vector<CAFenster> viewports;
    std::array<std::optional<std::wstring>, slots.size()> labels;
    bool complete = false;  ///< whether all objects were seen with their data
};

void LayoutDetails::FillLayoutDetails() {
    XDataReport report(context_.platform.messages);
    fill(report);
    report.tellFailedReading();
}

void LayoutDetails::fill(XDataReport& report) {
    const TreeNode* node = tree_.selected();
    const Update update(list_);
    list_.clear();  // within the update: a row that comes back keeps its selection
    addRows(node->text());

    host::Layout layout;
    ignoringErrors([&] {
        layout = context_.autoCAD.GetDocumentByKey(node->parent()->key()).Layouts().Item(node->text());
    });
    Contents contents;
    if (layout) {
        fillPlotSettings(layout);
        contents = readContents(layout, report);
    }
    addViewports(contents.viewports);
    for (std::size_t i = 0; i < slots.size(); ++i)
        setValue(slots[i].row, contents.labels[i].value_or(contents.complete ? notPresent : L""));
}

void LayoutDetails::addRows(const std::wstring& layoutName) {
    for (const Row& row : rows) list_.add(row.key, row.caption, listIcon::detail);
    setValue(L"ILayoutname", layoutName);
}

void LayoutDetails::fillPlotSettings(const host::Layout& layout) {
    ignoringErrors([&] { setValue(L"IPlotter", layout.ConfigName()); });
    setValue(L"IPapierformat", paperFormat(layout));
    ignoringErrors(
        [&] { setValue(L"IPapiergroesse", paperSizeText(layout.GetPaperSize(), context_.platform.locale)); });
    ignoringErrors([&] { setValue(L"IAusrichtung", orientationText(layout.PlotRotation())); });
    ignoringErrors([&] { setValue(L"IPlotstil", plotStyleText(layout.StyleSheet())); });
    ignoringErrors([&] { setValue(L"IPlotbereich", plotAreaText(layout.PlotType())); });
}

LayoutDetails::Contents LayoutDetails::readContents(const host::Layout& layout, XDataReport& report) {
    Contents contents;
    ignoringErrors([&] {
        LongRead reading(context_.platform.readings);
        const auto goOn = [&] { return reading.goOn(); };
        bool allRead = true;
        const auto entities = layout.Block().entities(goOn);
        // None at all may mean that Esc has ended the looking.
        if (!reading.goOn()) return;
        for (const host::Entity& entity : entities) {
            if (!reading.goOn()) return;
            allRead &= ignoringErrors([&] { readEntity(entity, report, contents); });
        }
        contents.complete = allRead && !report.hasReadingFailed();
    });
    return contents;
}

void LayoutDetails::readEntity(const host::Entity& entity, XDataReport& report, Contents& contents) {
    const std::wstring objectName = entity.ObjectName();
    const bool isViewport = objectName == L"AcDbViewport";
    if (!isViewport && !isBlockReference(objectName)) return;

    CAFenster values;
    values.GetAfenwerte(
        {.document = {}, .object = entity, .report = report, .locale = context_.platform.locale});
    if (isViewport && values.Verwaltet) {
        ignoringErrors([&] { values.Faktor = scaleFactor(entity.viewportCustomScale()); });
        contents.viewports.push_back(values);
    }
    if (isViewport) return;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (values.Tarvix != slots[i].marker) continue;
        if (const CBlock* definition = this->definition(slots[i].typeId, entity.blockEffectiveName()))
            contents.labels[i] = definition->Bezeichnung;
    }
}

const CBlock* LayoutDetails::definition(std::int32_t typeId, const std::wstring& blockName) const {
    for (const auto& block : context_.database.blocks())
        if (block->TypenId == typeId && context_.platform.locale.equalIgnoringCase(block->block, blockName))
            return block.get();
    return nullptr;
}

void LayoutDetails::addViewports(const std::vector<CAFenster>& viewports) {
    for (std::size_t i = 0; i < viewports.size(); ++i) {
        const std::wstring number = std::to_wstring(i + 1);
        const std::wstring key = L"IAnsichtsfenster" + number;
        list_.add(key, viewports.size() == 1 ? L"Ansichtsfenster" : L"Ansichtsfenster " + number,
                  listIcon::detail);
        ignoringErrors([&] { setValue(key, viewportText(viewports[i])); });
    }
}

std::wstring LayoutDetails::viewportText(const CAFenster& viewport) const {
    if (viewport.Faktor == 0) return {};
    const std::wstring& label = viewport.Bezeichnung;
    return (label.empty() ? L"Unbenannt" : label) + L" (1:" + context_.general.FormatZahl(viewport.Faktor) +
           L")";
}

void LayoutDetails::setValue(std::wstring_view key, std::wstring text) {
    if (ListItem* item = list_.find(key)) item->setColumn(2, std::move(text));
}

}  // namespace blattwart
