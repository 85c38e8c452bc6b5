#include <algorithm>
#include <charconv>
#include <istream>
#include <iterator>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

/// Drawings from files.
namespace demo {

namespace {

/// Handles beyond this are refused, so that counting on never overflows.
constexpr Handle highestHandle = Handle{1} << 62;

[[noreturn]] void fail(const std::wstring& text) {
    throw blattwart::RuntimeError(blattwart::errorNumber::invalidCall, text);
}

[[noreturn]] void failDamaged(const std::wstring& what) {
    fail(L"Die Zeichnungsdatei ist beschädigt: " + what);
}

/// What stands from one group 0 to the next.
struct Record {
    std::string type;
    Groups groups;
};

/// What the preview picture at the beginning of a drawing file ends with.
constexpr std::string_view pictureEnd = "\xE0\xDA\x92\xF8\x2B\xC9\xD7\xD7\x62\xA8\x35\xC0\x62\xBB\xEF\xD4";

/// A file's text, without head and picture.
std::string_view textOf(std::string_view file) {
    const std::size_t end = file.starts_with("AC10") ? file.find(pictureEnd) : std::string_view::npos;
    return end == std::string_view::npos ? file : file.substr(end + pictureEnd.size());
}

/// Takes the groups off the text of a file.
class GroupReader {
  public:
    explicit GroupReader(std::string_view bytes) : rest_(bytes) {
        const std::size_t release = bytes.find("AC10", bytes.find("$ACADVER"));
        const std::string_view code = bytes.substr(std::min(release, bytes.size()), 6);
        if (code < "AC1015") fail(L"Nur DXF-Dateien ab der Version 2000 werden gelesen.");
        unicode_ = code >= "AC1021";
        if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);
    }

    /// All records up to EOF, without comments.
    std::vector<Record> records() {
        std::vector<Record> records(1);
        for (Group group = next(); group.code != 0 || group.value != "EOF"; group = next()) {
            if (group.code == 0)
                records.push_back({std::move(group.value), {}});
            else if (group.code != 999)
                records.back().groups.push_back(std::move(group));
        }
        return records;
    }

  private:
    Group next() {
        std::string_view code = line();
        code.remove_prefix(std::min(code.find_first_not_of(' '), code.size()));
        Group group;
        const auto [end, error] = std::from_chars(code.data(), code.data() + code.size(), group.code);
        if (error != std::errc() || group.code < -5 || group.code > 1071)
            failDamaged(L"Gruppencode erwartet (Zeile " + std::to_wstring(line_) + L").");
        group.value = unicode_ ? std::string(line()) : fromCodePage(line());
        return group;
    }

    std::string_view line() {
        if (rest_.empty()) failDamaged(L"Die Datei endet vorzeitig.");
        ++line_;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (text.ends_with('\r')) text.remove_suffix(1);
        return text;
    }

    std::string_view rest_;
    bool unicode_ = true;
    std::int64_t line_ = 0;
};

constexpr std::string_view keptTables[] = {"LTYPE", "LAYER", "STYLE", "APPID", "DIMSTYLE"};

bool isPart(const std::string& type) {
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

}  // namespace

/// Builds a drawing from a file's records.
class DrawingReader {
  public:
    Drawing read(std::istream& stream) {
        const std::string bytes(std::istreambuf_iterator<char>(stream), {});
        for (const Record& record : GroupReader(textOf(bytes)).records()) take(record);
        makeLayouts();
        enterAll();
        return std::move(drawing_);
    }

  private:
    void take(const Record& record) {
        if (record.type == "SECTION")
            takeSection(record);
        else if (section_ == "TABLES")
            takeTableRecord(record);
        else if (section_ == "BLOCKS")
            takeBlockRecord(record);
        else if (section_ == "ENTITIES" && record.type != "ENDSEC")
            takeEntity(record, nullptr);
        else if (section_ == "OBJECTS" && record.type == "LAYOUT")
            layouts_.push_back(record.groups);
    }

    /// The variables of the header stand where other sections have their name alone.
    void takeSection(const Record& record) {
        section_ = record.groups.empty() ? "" : record.groups.front().value;
        const auto name = std::ranges::find(record.groups, Group{9, "$TILEMODE"});
        if (section_ == "HEADER" && name != record.groups.end() && name + 1 != record.groups.end())
            drawing_.modelCurrent_ = (name + 1)->integer() != 0;
    }

    void takeTableRecord(const Record& record) {
        Object object(record.type, record.groups);
        if (record.type == "BLOCK_RECORD")
            blockRecords_.emplace(folded(object.text(2)), std::move(object));
        else if (std::ranges::find(keptTables, record.type) != std::end(keptTables))
            drawing_.tables_[record.type].push_back(std::move(object));
    }

    void takeBlockRecord(const Record& record) {
        if (record.type == "BLOCK") {
            block_ = &makeBlock(Object(record.type, record.groups));
        } else if (record.type == "ENDBLK") {
            block_ = nullptr;
        } else if (record.type != "ENDSEC") {
            if (!block_) failDamaged(L"Die Blöcke sind nicht richtig begrenzt.");
            takeEntity(record, block_);
        }
    }

    Block& makeBlock(Object begin) {
        const std::wstring name = begin.text(2);
        const auto record = blockRecords_.find(folded(name));
        if (record == blockRecords_.end() || drawing_.findBlock(name))
            failDamaged(L"Der Block „" + name + L"“ fehlt in der Tabelle oder kommt mehrfach vor.");
        record->second.groups_ = std::move(begin.groups_);
        std::erase_if(record->second.groups_, [](const Group& g) { return g.code == 2 || g.code == 3; });
        auto& block = drawing_.blocks_.emplace_back(std::make_unique<Block>(record->second, name));
        if (block->isLayout()) homes_.emplace(block->handle(), block.get());
        return *block;
    }

    void takeEntity(const Record& record, Block* block) {
        if (record.type == "BLOCK" || record.type == "ENDBLK")
            failDamaged(L"Ein Block steht am falschen Ort.");
        auto entity = std::make_unique<Object>(record.type, record.groups);
        if (isPart(record.type)) {
            if (!last_) failDamaged(L"Ein Attribut oder Scheitel gehört zu keinem Objekt.");
            last_->parts_.push_back(std::move(*entity));
            return;
        }
        last_ = entity.get();
        (block ? *block : homeOf(*entity)).entities.push_back(std::move(entity));
    }

    Block& homeOf(const Object& entity) {
        if (const auto home = homes_.find(entity.owner()); home != homes_.end()) return *home->second;
        Block* block = drawing_.findBlock(entity.integer(67) == 1 ? L"*Paper_Space" : L"*Model_Space");
        if (!block) failDamaged(L"Der Modell- oder Papierbereich fehlt.");
        return *block;
    }

    void makeLayouts() {
        std::multimap<std::int64_t, std::unique_ptr<Layout>> byTab;
        for (const Groups& groups : layouts_) {
            const auto sheet = std::ranges::find(groups, Group{100, "AcDbLayout"});
            auto [tab, layout] = makeLayout(Object("LAYOUT", Groups(groups.begin(), sheet)),
                                            Object("LAYOUT", Groups(sheet, groups.end())));
            byTab.emplace(layout->isModel() ? std::int64_t{-1} << 32 : tab, std::move(layout));
        }
        for (auto& [tab, layout] : byTab) drawing_.layouts_.push_back(std::move(layout));
        drawing_.numberTabs();
        // Content that no layout shows: what is left of the first layout in a drawing without any.
        std::erase_if(drawing_.blocks_, [](const auto& b) { return b->isLayout() && !b->layout; });
        if (byTab.empty() || !drawing_.modelLayout().isModel())
            failDamaged(L"Das Layout des Modellbereichs fehlt.");
        if (byTab.size() > mostPaperLayouts + 1) failDamaged(L"Sie hat zu viele Layouts.");
    }

    /// The layout and its place among the tabs. `sheet` is owned by the block of its content.
    std::pair<std::int64_t, std::unique_ptr<Layout>> makeLayout(Object plot, Object sheet) {
        const auto home = homes_.find(sheet.owner());
        if (home == homes_.end() || home->second->layout)
            failDamaged(L"Das Layout „" + sheet.text(1) + L"“ hat keinen eigenen Block.");
        plot.xdata_ = std::move(sheet.xdata_);
        std::pair<std::int64_t, std::wstring> tabAndName(sheet.integer(71), sheet.text(1));
        std::erase_if(sheet.groups_,
                      [](const Group& g) { return g.code == 1 || g.code == 71 || g.code == 100; });
        return {tabAndName.first, std::make_unique<Layout>(std::move(plot), std::move(sheet.groups_),
                                                           tabAndName.second, *home->second)};
    }

    void enterAll() {
        for (const auto& block : drawing_.blocks_) {
            enter(*block);
            for (const auto& entity : block->entities) {
                entity->owner_ = block->handle();
                enter(*entity);
            }
        }
        for (const auto& layout : drawing_.layouts_) enter(*layout);
    }

    void enter(Object& object) {
        const Handle handle = object.handle();
        const bool usable = handle != 0 && handle < highestHandle;
        if (!usable || !drawing_.index_.emplace(handle, &object).second)
            failDamaged(L"Handle " + handleText(handle) + L" ist ungültig oder kommt mehrfach vor.");
        drawing_.nextHandle_ = std::max(drawing_.nextHandle_, handle + 1);
        for (Object& part : object.parts_) enter(part);
    }

    Drawing drawing_;
    std::string section_;  ///< that the records under way belong to
    std::map<std::wstring, Object> blockRecords_;
    std::unordered_map<Handle, Block*> homes_;
    Block* block_ = nullptr;
    Object* last_ = nullptr;
    std::vector<Groups> layouts_;
};

Drawing Drawing::load(std::istream& stream) {
    return DrawingReader().read(stream);
}

}  // namespace demo
