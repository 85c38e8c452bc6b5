#include <algorithm>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

/// Layouts of a drawing and what is done with them.
namespace demo {

using blattwart::RuntimeError;
namespace errorNumber = blattwart::errorNumber;

namespace {

constexpr std::size_t longestName = 255;
constexpr const wchar_t* activePaper = L"*Paper_Space";

void requirePaper(const Layout& layout, const std::wstring& operation) {
    if (layout.isModel()) refuse(L"Der Modellbereich kann nicht " + operation + L" werden.");
}

Object newBlock() {
    return {"BLOCK_RECORD",
            {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockBegin"}, {70, "0"}, {10, "0"}, {20, "0"}}};
}

/// An A4 sheet without a plot device.
std::unique_ptr<Layout> newLayout(Block& block) {
    const Groups plot = {{100, "AcDbPlotSettings"},
                         {1, ""},
                         {2, "none_device"},
                         {4, "ISO_A4_(210.00_x_297.00_MM)"},
                         {6, ""},
                         {7, ""},
                         {40, "7.5"},
                         {41, "20"},
                         {42, "7.5"},
                         {43, "20"},
                         {44, "210"},
                         {45, "297"},
                         {70, "688"},
                         {72, "1"},
                         {73, "0"},
                         {74, "5"},
                         {75, "16"},
                         {142, "1"},
                         {143, "1"}};
    const Groups sheet = {{70, "1"}, {10, "0"}, {20, "0"}, {11, "210"}, {21, "297"}};
    return std::make_unique<Layout>(Object("LAYOUT", plot), sheet, L"", block);
}

}  // namespace

Drawing Drawing::createModelOnly() {
    Drawing drawing;
    drawing.registerApplication(L"ACAD");
    drawing.insertLayout(newLayout(drawing.addBlock(newBlock(), L"*Model_Space")), L"Model", 0);
    return drawing;
}

Drawing Drawing::createEmpty() {
    Drawing drawing = createModelOnly();
    drawing.addLayout(L"Layout1");
    return drawing;
}

std::vector<Layout*> Drawing::layouts() const {
    std::vector<Layout*> result;
    for (const auto& layout : layouts_) result.push_back(layout.get());
    return result;
}

Layout* Drawing::findLayout(std::wstring_view name) const {
    const auto found =
        std::ranges::find_if(layouts_, [&](const auto& l) { return sameName(l->name(), name); });
    return found == layouts_.end() ? nullptr : found->get();
}

Layout* Drawing::findLayout(Handle handle) const {
    const auto found = std::ranges::find_if(layouts_, [&](const auto& l) { return l->handle() == handle; });
    return found == layouts_.end() ? nullptr : found->get();
}

Layout& Drawing::currentLayout() const {
    Layout* paper = modelCurrent_ ? nullptr : activePaperLayout();
    return paper ? *paper : modelLayout();
}

Layout* Drawing::activePaperLayout() const {
    const Block* block = findBlock(activePaper);
    return block ? block->layout : nullptr;
}

void Drawing::setCurrentLayout(Layout& layout) {
    modelCurrent_ = layout.isModel();
    if (modelCurrent_) return;
    makeActivePaper(layout);
    if (!layout.sheetViewport()) addSheetViewport(layout);
}

void Drawing::makeActivePaper(Layout& layout) {
    Block* active = findBlock(activePaper);
    if (active)
        std::swap(active->name, layout.block().name);
    else
        layout.block().name = activePaper;
}

void Drawing::addSheetViewport(Layout& layout) {
    const PlotSettings settings = layout.plotSettings();
    const double unit = settings.units == 0 ? 25.4 : 1;
    double width = settings.paperWidth / unit;
    double height = settings.paperHeight / unit;
    if (settings.rotation % 2 != 0) std::swap(width, height);
    const Groups groups = {{100, "AcDbEntity"},
                           {67, "1"},
                           {8, "0"},
                           {100, "AcDbViewport"},
                           numberGroup(10, width / 2),
                           numberGroup(20, height / 2),
                           numberGroup(40, width),
                           numberGroup(41, height),
                           {68, "1"},
                           {69, "1"},
                           numberGroup(12, width / 2),
                           numberGroup(22, height / 2),
                           numberGroup(45, height),
                           {90, "819232"}};
    place(layout.block(), Object("VIEWPORT", groups), true);
}

std::wstring Drawing::freePaperSpaceName() const {
    std::wstring name = activePaper;
    for (int number = 0; findBlock(name); ++number) name = activePaper + std::to_wstring(number);
    return name;
}

Layout& Drawing::addLayout(std::wstring_view name) {
    requireNewLayoutName(name);
    return insertLayout(newLayout(addBlock(newBlock(), freePaperSpaceName())), name, layouts_.size());
}

Layout& Drawing::copyLayout(const Layout& source, std::wstring_view name) {
    requirePaper(source, L"kopiert");
    return takeOver(source, name, positionOf(source));
}

Layout& Drawing::takeOver(const Layout& source, std::wstring_view name, std::size_t position) {
    requireNewLayoutName(name);
    Block& block = copyBlock(source.block(), freePaperSpaceName());
    return insertLayout(std::make_unique<Layout>(source, block), name, position);
}

Layout& Drawing::insertLayout(std::unique_ptr<Layout> layout, std::wstring_view name, std::size_t position) {
    layout->name_ = name;
    enter(*layout);
    const auto place = layouts_.begin() + static_cast<std::ptrdiff_t>(position);
    Layout& result = **layouts_.insert(place, std::move(layout));
    numberTabs();
    return result;
}

void Drawing::deleteLayout(Layout& layout) {
    requirePaper(layout, L"gelöscht");
    if (layouts_.size() <= 2) refuse(L"Das letzte Layout kann nicht gelöscht werden.");
    const std::size_t position = positionOf(layout);
    Layout& neighbour = *layouts_[position + 1 < layouts_.size() ? position + 1 : position - 1];
    if (&currentLayout() == &layout)
        setCurrentLayout(neighbour);
    else if (activePaperLayout() == &layout)
        makeActivePaper(neighbour);
    const Block& block = layout.block();
    for (const auto& entity : block.entities) forget(*entity);
    forget(block);
    forget(layout);
    std::erase_if(blocks_, [&](const auto& other) { return other.get() == &block; });
    layouts_.erase(layouts_.begin() + static_cast<std::ptrdiff_t>(position));
    numberTabs();
}

void Drawing::renameLayout(Layout& layout, std::wstring_view name) {
    requirePaper(layout, L"umbenannt");
    requireNewLayoutName(name, &layout);
    layout.name_ = name;
}

void Drawing::setTabOrder(Layout& layout, std::int32_t position) {
    requirePaper(layout, L"verschoben");
    if (position < 1 || static_cast<std::size_t>(position) >= layouts_.size())
        refuse(L"Die Position des Layouts ist ungültig.");
    const auto from = layouts_.begin() + static_cast<std::ptrdiff_t>(positionOf(layout));
    const auto to = layouts_.begin() + position;
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    numberTabs();
}

std::wstring Drawing::uniqueLayoutName(std::wstring_view wanted) const {
    std::wstring name(wanted);
    for (int number = 2; findLayout(name); ++number) {
        const std::wstring suffix = L" (" + std::to_wstring(number) + L")";
        name = std::wstring(wanted.substr(0, longestName - suffix.size())) + suffix;
    }
    return name;
}

Drawing Drawing::templateOf(const Layout& layout) const {
    requirePaper(layout, L"als Vorlage gespeichert");
    Drawing result = createModelOnly();
    result.takeDefinitions(*this);
    result.setCurrentLayout(result.takeOver(layout, layout.name(), 1));
    return result;
}

std::vector<Layout*> Drawing::importLayouts(const Drawing& source, std::span<const std::wstring> names) {
    std::vector<const Layout*> wanted;
    for (const std::wstring& name : names) {
        const Layout* layout = source.findLayout(name);
        if (!layout)
            throw RuntimeError(errorNumber::elementNotFound, L"Das Layout „" + name + L"“ gibt es nicht.");
        requirePaper(*layout, L"übernommen");
        wanted.push_back(layout);
    }
    for (const Layout* layout : source.layouts()) {
        if (names.empty() && !layout->isModel()) wanted.push_back(layout);
    }
    takeDefinitions(source);
    std::vector<Layout*> made;
    made.reserve(wanted.size());
    for (const Layout* layout : wanted)
        made.push_back(&takeOver(*layout, uniqueLayoutName(layout->name()), layouts_.size()));
    return made;
}

void Drawing::requireNewLayoutName(std::wstring_view name, const Layout* renamed) const {
    if (name.empty() || name.size() > longestName ||
        name.find_first_of(L"<>/\\\":;?*|,=`") != std::wstring_view::npos ||
        std::ranges::any_of(name, [](wchar_t c) { return c < 0x20; }))
        refuse(L"„" + std::wstring(name) + L"“ ist kein gültiger Layoutname.");
    const Layout* same = findLayout(name);
    if (same && same != renamed)
        throw RuntimeError(errorNumber::duplicateKey,
                           L"Das Layout „" + std::wstring(name) + L"“ gibt es schon.");
    if (!renamed && layouts_.size() > mostPaperLayouts) refuse(L"Die Zeichnung hat bereits 255 Layouts.");
}

std::size_t Drawing::positionOf(const Layout& layout) const {
    const auto found = std::ranges::find_if(layouts_, [&](const auto& l) { return l.get() == &layout; });
    return static_cast<std::size_t>(found - layouts_.begin());
}

void Drawing::numberTabs() {
    std::int32_t position = 0;
    for (const auto& layout : layouts_) layout->tabOrder_ = position++;
}

}  // namespace demo
