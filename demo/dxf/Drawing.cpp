#include "demo/dxf/Drawing.h"

#include <algorithm>

#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

/// Blocks, objects and extended data of a drawing.
namespace demo {

using blattwart::RuntimeError;
namespace errorNumber = blattwart::errorNumber;

void refuse(const std::wstring& reason) {
    throw RuntimeError(errorNumber::invalidCall, reason);
}

namespace {

bool holds(const Records& records, std::wstring_view name) {
    return std::ranges::any_of(records, [&](const Object& record) { return sameName(record.text(2), name); });
}

void requireStorable(const XDataItem& item) {
    xdataGroups(item);
    const auto* text = std::get_if<std::wstring>(&item.value);
    if (item.code == 1005 && !parseHandle(std::wstring_view(*text)))
        refuse(L"„" + *text + L"“ ist kein Handle.");
}

}  // namespace

Block* Drawing::findBlock(std::wstring_view name) const {
    const auto found =
        std::ranges::find_if(blocks_, [&](const auto& block) { return sameName(block->name, name); });
    return found == blocks_.end() ? nullptr : found->get();
}

Block* Drawing::findBlock(Handle record) const {
    const auto found =
        std::ranges::find_if(blocks_, [&](const auto& block) { return block->handle() == record; });
    return found == blocks_.end() ? nullptr : found->get();
}

Object* Drawing::find(Handle handle) const {
    const auto found = index_.find(handle);
    return found == index_.end() ? nullptr : found->second;
}

void Drawing::enter(Object& object) {
    object.handle_ = nextHandle_++;
    index_.emplace(object.handle_, &object);
    for (Object& part : object.parts_) enter(part);
}

void Drawing::forget(const Object& object) {
    index_.erase(object.handle());
    for (const Object& part : object.parts()) forget(part);
}

Object& Drawing::place(Block& block, Object object, bool first) {
    const auto position = first ? block.entities.begin() : block.entities.end();
    Object& entity = **block.entities.insert(position, std::make_unique<Object>(std::move(object)));
    entity.owner_ = block.handle();
    enter(entity);
    return entity;
}

Object& Drawing::addEntity(Block& block, std::string type, const Groups& groups) {
    return place(block, Object(std::move(type), groups));
}

void Drawing::erase(Object& entity) {
    Block* block = findBlock(entity.owner());
    if (!block) throw RuntimeError(errorNumber::elementNotFound, L"Das Objekt gehört zu keinem Block.");
    forget(entity);
    std::erase_if(block->entities, [&](const auto& other) { return other.get() == &entity; });
}

Block& Drawing::addBlock(Object object, std::wstring name) {
    Block& block = *blocks_.emplace_back(std::make_unique<Block>(std::move(object), std::move(name)));
    enter(block);
    return block;
}

Block& Drawing::copyBlock(const Block& original, std::wstring name) {
    Block& copy = addBlock(static_cast<const Object&>(original), std::move(name));
    for (const auto& entity : original.entities) place(copy, *entity);
    return copy;
}

/// Blocks and records of another drawing whose names are unknown here.
void Drawing::takeDefinitions(const Drawing& source) {
    for (const auto& [table, records] : source.tables_) {
        for (const Object& record : records)
            if (!holds(tables_[table], record.text(2))) tables_[table].push_back(record);
    }
    for (const auto& block : source.blocks_)
        if (!block->isLayout() && !findBlock(block->name)) copyBlock(*block, block->name);
}

std::vector<std::wstring> Drawing::applications() const {
    std::vector<std::wstring> names;
    for (const Object& record : tables_.at("APPID")) names.push_back(record.text(2));
    return names;
}

void Drawing::registerApplication(std::wstring_view application) {
    Records& records = tables_.at("APPID");
    if (holds(records, application)) return;
    if (application.empty()) refuse(L"Der Anwendungsname ist leer.");
    records.emplace_back("APPID", Groups{{100, "AcDbSymbolTableRecord"},
                                         {100, "AcDbRegAppTableRecord"},
                                         textGroup(2, application),
                                         {70, "0"}});
}

void Drawing::setXData(Object& object, const XData& data) {
    std::vector<XData> runs;
    for (const XDataItem& item : data) {
        requireStorable(item);
        if (item.code == 1001) runs.emplace_back();
        if (runs.empty()) refuse(L"Erweiterte Daten beginnen mit dem Namen der Anwendung.");
        runs.back().push_back(item);
    }
    for (const XData& run : runs) {
        const auto& application = std::get<std::wstring>(run.front().value);
        if (!holds(tables_.at("APPID"), application))
            refuse(L"Die Anwendung „" + application + L"“ ist nicht registriert.");
    }
    for (const XData& run : runs) object.replaceXData(run);
}

std::int32_t Drawing::audit() {
    std::int32_t corrected = 0;
    for (const auto& [handle, object] : index_) {
        for (XDataItem& item : object->xdata_) {
            auto* text = item.code == 1005 ? &std::get<std::wstring>(item.value) : nullptr;
            if (!text || *text == L"0" || find(parseHandle(std::wstring_view(*text)).value_or(0))) continue;
            *text = L"0";
            ++corrected;
        }
    }
    return corrected;
}

}  // namespace demo
