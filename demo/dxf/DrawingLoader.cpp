#include "demo/dxf/DrawingLoader.h"

#include <algorithm>
#include <utility>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

/// Handles beyond this are refused, so that counting on never overflows.
constexpr Handle highestHandle = Handle{1} << 62;

bool isPart(const Object& object) {
    return object.type() == "VERTEX" || object.type() == "ATTRIB" || object.type() == "SEQEND";
}

bool takesParts(const Object& object) {
    const bool complete = !object.parts().empty() && object.parts().back()->type() == "SEQEND";
    return (object.type() == "POLYLINE" || object.type() == "INSERT") && !complete;
}

void append(Objects& entities, std::unique_ptr<Object> entity) {
    if (isPart(*entity) && !entities.empty() && takesParts(*entities.back()))
        entities.back()->mutableParts().push_back(std::move(entity));
    else
        entities.push_back(std::move(entity));
}

}  // namespace

void DrawingLoader::run(std::istream& stream) {
    drawing_.file_ = readFile(stream);
    readTables(take("TABLES"));
    readBlocks(take("BLOCKS"));
    drawing_.objects_ = take("OBJECTS");
    drawing_.rootDictionary();
    Objects entities = take("ENTITIES");
    enterAll();
    placeEntities(std::move(entities));
    makeLayouts();
    chooseNextHandle();
}

Objects DrawingLoader::take(std::string_view section) {
    auto& sections = drawing_.file_.sections;
    const auto named = [&](const Section& s) { return s.name == section; };
    if (std::ranges::count_if(sections, named) != 1)
        throwDamaged(L"Der Abschnitt " + decodeText(section) + L" fehlt oder kommt mehrfach vor.");
    return std::move(std::ranges::find_if(sections, named)->content);
}

void DrawingLoader::readTables(Objects records) {
    bool open = false;
    for (auto& record : records) {
        if (record->type() == "TABLE" && !open) {
            drawing_.tables_.push_back({std::move(record), {}});
            open = true;
        } else if (record->type() == "ENDTAB" && open) {
            open = false;
        } else if (open && record->type() != "TABLE") {
            drawing_.tables_.back().records.push_back(std::move(record));
        } else {
            throwDamaged(L"Die Tabellen sind nicht richtig begrenzt.");
        }
    }
    if (open) throwDamaged(L"Die letzte Tabelle hat kein Ende.");
}

void DrawingLoader::readBlocks(Objects records) {
    std::unique_ptr<Block> block;
    for (auto& record : records) {
        if (!block) {
            if (record->type() != "BLOCK") throwDamaged(L"Die Blöcke sind nicht richtig begrenzt.");
            block = std::make_unique<Block>();
            block->begin = std::move(record);
        } else if (record->type() == "ENDBLK") {
            block->end = std::move(record);
            drawing_.blocks_.push_back(std::exchange(block, nullptr));
        } else {
            append(block->entities, std::move(record));
        }
    }
    if (block) throwDamaged(L"Der letzte Block hat kein Ende.");
}

void DrawingLoader::enterOne(Object& object) {
    const Handle handle = object.handle();
    if (handle >= highestHandle) throwDamaged(L"Handle " + handleText(handle) + L" ist zu groß.");
    if (handle != 0 && !drawing_.index_.emplace(handle, &object).second)
        throwDamaged(L"Handle " + handleText(handle) + L" kommt mehrfach vor.");
    enter(object.parts());
}

void DrawingLoader::enter(const Objects& objects) {
    for (const auto& object : objects) enterOne(*object);
}

void DrawingLoader::enterAll() {
    std::unordered_map<std::wstring, Object*> blockRecords;
    for (const Table& table : drawing_.tables_) {
        enterOne(*table.head);
        enter(table.records);
        if (table.name() != L"BLOCK_RECORD") continue;
        for (const auto& record : table.records) blockRecords.emplace(folded(record->text(2)), record.get());
    }
    for (const auto& block : drawing_.blocks_) {
        enterOne(*block->begin);
        enterOne(*block->end);
        enter(block->entities);
        const std::wstring name = folded(block->name());
        if (!drawing_.blocksByName_.emplace(name, block.get()).second)
            throwDamaged(L"Der Block „" + block->name() + L"“ kommt mehrfach vor.");
        const auto record = blockRecords.find(name);
        if (record == blockRecords.end()) continue;
        block->record = record->second;
        drawing_.blocksByRecord_.emplace(block->handle(), block.get());
    }
    enter(drawing_.objects_);
}

void DrawingLoader::placeEntities(Objects entities) {
    Block* block = nullptr;
    for (auto& entity : entities) {
        enterOne(*entity);
        // Parts follow the entity that they belong to.
        if (!block || !isPart(*entity)) block = &blockFor(*entity);
        append(block->entities, std::move(entity));
    }
}

Block& DrawingLoader::blockFor(const Object& entity) {
    Block* block = drawing_.findBlock(entity.owner());
    if (!block || !block->isLayout())
        block = drawing_.findBlock(entity.integer(67) == 1 ? L"*Paper_Space" : L"*Model_Space");
    if (!block) throwDamaged(L"Der Modell- oder Papierbereich fehlt.");
    return *block;
}

void DrawingLoader::makeLayouts() {
    for (const auto& object : drawing_.objects_) {
        if (object->type() == "LAYOUT") makeLayout(*object);
    }
    auto& layouts = drawing_.layouts_;
    if (layouts.size() > mostPaperLayouts + 1) throwDamaged(L"Sie hat zu viele Layouts.");
    std::ranges::stable_sort(layouts, {}, [](const auto& layout) {
        return layout->isModel() ? std::int64_t{-1} << 32 : std::int64_t{layout->tabOrder()};
    });
    if (layouts.empty() || !layouts.front()->isModel()) throwDamaged(L"Das Layout des Modellbereichs fehlt.");
}

void DrawingLoader::makeLayout(Object& object) {
    Block* block = drawing_.findBlock(object.reference(330, "AcDbLayout"));
    if (!block || !block->isLayout() || object.handle() == 0)
        throwDamaged(L"Das Layout „" + object.text(1, "AcDbLayout") + L"“ hat keinen Block.");
    if (block->layout) throwDamaged(L"Der Block „" + block->name() + L"“ gehört zu mehreren Layouts.");
    drawing_.layouts_.push_back(std::make_unique<Layout>(object, *block));
}

void DrawingLoader::chooseNextHandle() {
    Handle highest = 0;
    for (const auto& [handle, object] : drawing_.index_) highest = std::max(highest, handle);
    const Group* seed = drawing_.headerVariable("$HANDSEED");
    const Handle wanted = seed ? seed->handle() : 0;
    drawing_.nextHandle_ = wanted < highestHandle ? std::max(highest + 1, wanted) : highest + 1;
}

}  // namespace demo
