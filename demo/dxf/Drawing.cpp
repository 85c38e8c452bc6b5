#include "demo/dxf/Drawing.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <unordered_set>

#include "demo/dxf/Dictionary.h"
#include "demo/dxf/DrawingLoader.h"
#include "demo/dxf/Templates.h"
#include "demo/dxf/Text.h"
#include "platform/RuntimeError.h"

namespace demo {

using blattwart::RuntimeError;
namespace errorNumber = blattwart::errorNumber;

void refuse(const std::wstring& reason) {
    throw RuntimeError(errorNumber::invalidCall, reason);
}

Drawing Drawing::load(std::istream& stream) {
    Drawing drawing;
    DrawingLoader(drawing).run(stream);
    return drawing;
}

Drawing Drawing::loadFile(const std::wstring& path) {
    const std::filesystem::path file = toPath(path);
    std::error_code error;
    std::ifstream stream;
    if (std::filesystem::is_regular_file(file, error)) stream.open(file, std::ios::binary);
    if (!stream.is_open())
        throw RuntimeError(errorNumber::fileNotFound,
                           L"Die Datei „" + path + L"“ kann nicht geöffnet werden.");
    return load(stream);
}

Drawing Drawing::createEmpty() {
    std::istringstream stream(emptyDrawingText());
    return load(stream);
}

void Drawing::save(std::ostream& stream) const {
    FileWriter writer(stream, isUnicodeRelease(version()));
    writer.write(file_.preamble);
    for (const Section& section : file_.sections) {
        writer.mark("SECTION");
        writer.write(Group{2, section.name});
        Groups lead = section.lead;
        if (section.name == "HEADER") setVariable(lead, "$HANDSEED", handleGroup(5, nextHandle_));
        writer.write(lead);
        writeContent(writer, section);
        writer.mark("ENDSEC");
    }
    writer.mark("EOF");
}

void Drawing::writeContent(FileWriter& writer, const Section& section) const {
    if (section.name == "TABLES") {
        for (const Table& table : tables_) {
            writer.write(*table.head);
            writer.write(table.records);
            writer.mark("ENDTAB");
        }
    } else if (section.name == "BLOCKS") {
        for (const auto& block : blocks_) {
            writer.write(*block->begin);
            if (!isInEntities(*block)) writer.write(block->entities);
            writer.write(*block->end);
        }
    } else if (section.name == "ENTITIES") {
        for (const auto& block : blocks_) {
            if (isInEntities(*block)) writer.write(block->entities);
        }
    } else {
        writer.write(section.name == "OBJECTS" ? objects_ : section.content);
    }
}

bool Drawing::isInEntities(const Block& block) {
    return block.isModelSpace() || block.isActivePaperSpace();
}

void Drawing::saveFile(const std::wstring& path) const {
    std::ofstream stream(toPath(path), std::ios::binary | std::ios::trunc);
    if (stream.is_open()) save(stream);
    stream.close();
    if (!stream)
        throw RuntimeError(errorNumber::fileNotFound,
                           L"Die Datei „" + path + L"“ kann nicht geschrieben werden.");
}

const Groups& Drawing::header() const {
    return std::ranges::find_if(file_.sections, [](const Section& s) { return s.name == "HEADER"; })->lead;
}

Groups& Drawing::header() {
    return const_cast<Groups&>(std::as_const(*this).header());
}

const Group* Drawing::headerVariable(std::string_view name) const {
    return findVariable(header(), name);
}

void Drawing::setHeaderVariable(std::string_view name, Group value) {
    setVariable(header(), name, std::move(value));
}

Block* Drawing::findBlock(std::wstring_view name) const {
    const auto found = blocksByName_.find(folded(name));
    return found == blocksByName_.end() ? nullptr : found->second;
}

Block* Drawing::findBlock(Handle record) const {
    const auto found = blocksByRecord_.find(record);
    return found == blocksByRecord_.end() ? nullptr : found->second;
}

Object* Drawing::find(Handle handle) const {
    const auto found = index_.find(handle);
    return found == index_.end() ? nullptr : found->second;
}

void Drawing::enter(Object& object) {
    if (object.handle() != 0) index_.emplace(object.handle(), &object);
    for (const auto& part : object.parts()) enter(*part);
}

Object& Drawing::adopt(Objects& list, std::unique_ptr<Object> object) {
    list.push_back(std::move(object));
    enter(*list.back());
    return *list.back();
}

Object& Drawing::addEntity(Block& block, std::string type, Groups groups, bool first) {
    auto entity = std::make_unique<Object>(std::move(type), std::move(groups));
    entity->setHandle(newHandle());
    entity->setOwner(block.handle());
    enter(*entity);
    const auto position = first ? block.entities.begin() : block.entities.end();
    return **block.entities.insert(position, std::move(entity));
}

void Drawing::erase(Object& entity) {
    const auto same = [&](const auto& other) { return other.get() == &entity; };
    for (const auto& block : blocks_) {
        const auto found = std::ranges::find_if(block->entities, same);
        if (found == block->entities.end()) continue;
        Objects removed;
        removed.push_back(std::move(*found));
        block->entities.erase(found);
        discard(removed);
        return;
    }
    throw RuntimeError(errorNumber::elementNotFound, L"Das Objekt gehört zu keinem Block.");
}

namespace {

bool isOwner(const Group& group) {
    return group.code == 350 || group.code == 360;
}

}  // namespace

std::vector<Object*> Drawing::owned(const Object& object) const {
    std::vector<Object*> result;
    for (const Group& group : object.groups()) {
        Object* child = isOwner(group) ? find(group.handle()) : nullptr;
        if (child && child->owner() == object.handle() && child->type() != "LAYOUT") result.push_back(child);
    }
    return result;
}

void Drawing::discard(const Objects& removed) {
    std::vector<const Object*> open;
    for (const auto& object : removed) open.push_back(object.get());
    std::unordered_set<const Object*> children;
    while (!open.empty()) {
        const Object& object = *open.back();
        open.pop_back();
        for (const auto& part : object.parts()) open.push_back(part.get());
        for (const Object* child : owned(object)) {
            if (children.insert(child).second) open.push_back(child);
        }
        if (!children.contains(&object)) index_.erase(object.handle());
    }
    if (children.empty()) return;
    std::erase_if(objects_, [&](const auto& object) {
        if (!children.contains(object.get())) return false;
        index_.erase(object->handle());
        return true;
    });
}

Table* Drawing::findTable(std::wstring_view name) {
    return const_cast<Table*>(std::as_const(*this).findTable(name));
}

const Table* Drawing::findTable(std::wstring_view name) const {
    const auto found =
        std::ranges::find_if(tables_, [&](const Table& table) { return table.name() == name; });
    return found == tables_.end() ? nullptr : &*found;
}

Object* Drawing::findRecord(const Table& table, std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        table.records, [&](const auto& record) { return sameName(record->text(2), name); });
    return found == table.records.end() ? nullptr : found->get();
}

Object& Drawing::rootDictionary() const {
    if (objects_.empty() || !isDictionary(*objects_.front())) throwDamaged(L"Das Hauptverzeichnis fehlt.");
    return *objects_.front();
}

Object& Drawing::namedDictionary(std::wstring_view name) {
    Object& root = rootDictionary();
    Object* found = find(dictionaryEntry(root, name));
    if (found && isDictionary(*found)) return *found;
    auto made = std::make_unique<Object>("DICTIONARY", Groups{{100, "AcDbDictionary"}, {281, "1"}});
    made->setHandle(newHandle());
    made->setOwner(root.handle());
    addDictionaryEntry(root, name, made->handle());
    return adopt(objects_, std::move(made));
}

}  // namespace demo
