#include <algorithm>
#include <sstream>

#include "demo/dxf/Dictionary.h"
#include "demo/dxf/Drawing.h"
#include "demo/dxf/ObjectCopier.h"
#include "demo/dxf/Templates.h"
#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

/// Layouts of a drawing and what is done with them.
namespace demo {

using blattwart::RuntimeError;
namespace errorNumber = blattwart::errorNumber;

namespace {

constexpr std::size_t longestName = 255;

void requirePaper(const Layout& layout, const std::wstring& operation) {
    if (layout.isModel()) refuse(L"Der Modellbereich kann nicht " + operation + L" werden.");
}

}  // namespace

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

Layout* Drawing::layoutOfBlock(Handle blockRecord) const {
    const Block* block = findBlock(blockRecord);
    return block ? block->layout : nullptr;
}

Layout& Drawing::modelLayout() const {
    return *layouts_.front();
}

Layout& Drawing::currentLayout() const {
    const Group* tileMode = headerVariable("$TILEMODE");
    Layout* paper = activePaperLayout();
    return paper && tileMode && tileMode->integer() == 0 ? *paper : modelLayout();
}

Layout* Drawing::activePaperLayout() const {
    const Block* block = findBlock(L"*Paper_Space");
    return block ? block->layout : nullptr;
}

void Drawing::setCurrentLayout(Layout& layout) {
    setHeaderVariable("$TILEMODE", integerGroup(70, layout.isModel() ? 1 : 0));
    noteCurrentTab(layout.name());
    if (layout.isModel()) return;
    makeActivePaper(layout);
    if (!layout.sheetViewport()) addSheetViewport(layout);
}

/// Later releases also hold the current tab as an entry of the drawing's variables; it is kept right where it
/// is there.
void Drawing::noteCurrentTab(const std::wstring& name) {
    const Object* variables = find(dictionaryEntry(rootDictionary(), L"AcDbVariableDictionary"));
    Object* tab = variables ? find(dictionaryEntry(*variables, L"CTAB")) : nullptr;
    if (tab && tab->type() == "DICTIONARYVAR") tab->set(textGroup(1, name));
}

void Drawing::makeActivePaper(Layout& layout) {
    if (layout.block().isActivePaperSpace()) return;
    const std::wstring name = layout.block().name();
    Block* active = findBlock(L"*Paper_Space");
    renameBlock(layout.block(), freePaperSpaceName());
    if (active) renameBlock(*active, name);
    renameBlock(layout.block(), L"*Paper_Space");
}

void Drawing::addSheetViewport(Layout& layout) {
    const PlotSettings settings = layout.plotSettings();
    const double unit = settings.units == 0 ? 25.4 : 1;
    double width = settings.paperWidth / unit;
    double height = settings.paperHeight / unit;
    if (settings.rotation % 2 != 0) std::swap(width, height);
    const Object& viewport = addEntity(layout.block(), "VIEWPORT", sheetViewportGroups(width, height), true);
    layout.object().set(handleGroup(331, viewport.handle()), "AcDbLayout");
}

Layout& Drawing::addLayout(std::wstring_view name) {
    requireNewLayoutName(name);
    auto object = std::make_unique<Object>("LAYOUT", newLayoutGroups());
    object->setHandle(newHandle());
    Layout& layout = insertLayout(std::move(object), newPaperSpaceBlock(), name, layouts_.size());
    linkLayout(layout);
    return layout;
}

Layout& Drawing::copyLayout(const Layout& source, std::wstring_view name) {
    requirePaper(source, L"kopiert");
    requireNewLayoutName(name);
    return takeOver(*this, source, name, positionOf(source));
}

Layout& Drawing::takeOver(const Drawing& from, const Layout& source, std::wstring_view name,
                          std::size_t position) {
    if (Block* idle = idlePaperSpace()) {
        Objects removed;
        takeBlock(*idle, removed);
        discard(removed);
    }
    ObjectCopier copier(from, *this);
    auto object = copier.copy(source.object());
    Block& block = copier.copyBlock(source.block(), freePaperSpaceName());
    Layout& layout = insertLayout(std::move(object), block, name, position);
    copier.finish();
    // Only now: what was copied still referred to the source's objects until here.
    linkLayout(layout);
    return layout;
}

Layout& Drawing::insertLayout(std::unique_ptr<Object> object, Block& block, std::wstring_view name,
                              std::size_t position) {
    Object& adopted = adopt(objects_, std::move(object));
    auto layout = std::make_unique<Layout>(adopted, block);
    adopted.set(textGroup(1, name), "AcDbLayout");
    Layout& result =
        **layouts_.insert(layouts_.begin() + static_cast<std::ptrdiff_t>(position), std::move(layout));
    addDictionaryEntry(namedDictionary(L"ACAD_LAYOUT"), name, adopted.handle());
    numberTabs();
    return result;
}

/// Layout, block record and dictionary refer to each other.
void Drawing::linkLayout(Layout& layout) {
    Object& object = layout.object();
    object.setOwner(namedDictionary(L"ACAD_LAYOUT").handle());
    object.set(handleGroup(330, layout.blockRecord()), "AcDbLayout");
    layout.block().record->set(handleGroup(340, layout.handle()), "AcDbBlockTableRecord");
}

void Drawing::deleteLayout(Layout& layout) {
    requirePaper(layout, L"gelöscht");
    if (layouts_.size() <= 2) refuse(L"Das letzte Layout kann nicht gelöscht werden.");
    const std::size_t position = positionOf(layout);
    Layout& neighbour = *layouts_[position + 1 < layouts_.size() ? position + 1 : position - 1];
    if (&currentLayout() == &layout)
        setCurrentLayout(neighbour);
    else if (layout.block().isActivePaperSpace())
        makeActivePaper(neighbour);
    Objects removed;
    removeDictionaryEntry(namedDictionary(L"ACAD_LAYOUT"), layout.handle());
    const auto object =
        std::ranges::find_if(objects_, [&](const auto& o) { return o.get() == &layout.object(); });
    removed.push_back(std::move(*object));
    objects_.erase(object);
    takeBlock(layout.block(), removed);
    layouts_.erase(layouts_.begin() + static_cast<std::ptrdiff_t>(position));
    discard(removed);
    numberTabs();
}

void Drawing::renameLayout(Layout& layout, std::wstring_view name) {
    requirePaper(layout, L"umbenannt");
    requireNewLayoutName(name, &layout);
    Object& dictionary = namedDictionary(L"ACAD_LAYOUT");
    removeDictionaryEntry(dictionary, layout.handle());
    addDictionaryEntry(dictionary, name, layout.handle());
    layout.object().set(textGroup(1, name), "AcDbLayout");
    if (&currentLayout() == &layout) noteCurrentTab(layout.name());
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
    std::stringstream stream;
    save(stream);
    Drawing result = load(stream);
    Layout& kept = *result.findLayout(layout.handle());
    if (result.currentLayout().isModel())
        result.makeActivePaper(kept);
    else
        result.setCurrentLayout(kept);
    for (Layout* other : result.layouts()) {
        if (!other->isModel() && other != &kept) result.deleteLayout(*other);
    }
    result.discard(std::exchange(result.modelLayout().block().entities, {}));
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
    std::vector<Layout*> made;
    for (const Layout* layout : wanted) {
        const std::wstring name = uniqueLayoutName(layout->name());
        requireNewLayoutName(name);
        made.push_back(&takeOver(source, *layout, name, layouts_.size()));
    }
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
    for (std::size_t i = 0; i < layouts_.size(); ++i) {
        const auto order = static_cast<std::int32_t>(i);
        if (layouts_[i]->tabOrder() != order)
            layouts_[i]->object().set(integerGroup(71, order), "AcDbLayout");
    }
}

}  // namespace demo
