#include "demo/dxf/ObjectCopier.h"

#include <algorithm>

#include "demo/dxf/Dictionary.h"
#include "demo/dxf/Text.h"

namespace demo {

namespace {

bool isHardPointer(std::int16_t code) {
    return (code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

bool isPointer(std::int16_t code) {
    return (code >= 320 && code <= 369) || isHardPointer(code) || code == 1005;
}

bool isAnonymous(std::wstring_view blockName) {
    return blockName.starts_with(L"*");
}

/// The group of an entity that names a block, or null.
Group* blockNameOf(Object& object) {
    const bool names =
        object.type() == "INSERT" || object.type() == "DIMENSION" || object.type() == "ACAD_TABLE";
    return names ? const_cast<Group*>(object.find(2)) : nullptr;
}

/// Table of the records that a group of an entity or record names; "" when it names none.
std::wstring_view tableNamedBy(const Object& object, std::int16_t code) {
    if (code == 8 || code == 1003) return L"LAYER";
    if (code == 1001) return L"APPID";
    if (code == 6 && object.type() != "LAYOUT") return L"LTYPE";
    if (code == 7 && object.type() != "LAYOUT") return L"STYLE";
    const bool styled =
        object.type() == "DIMENSION" || object.type() == "LEADER" || object.type() == "TOLERANCE";
    return code == 3 && styled ? L"DIMSTYLE" : L"";
}

}  // namespace

ObjectCopier::ObjectCopier(const Drawing& source, Drawing& target) : source_(source), target_(target) {
    if (sameDrawing()) return;
    for (const Table& table : source.tables_) {
        if (const Table* same = target.findTable(table.name()))
            handles_[table.head->handle()] = same->head->handle();
    }
}

std::unique_ptr<Object> ObjectCopier::copy(const Object& original) {
    auto made = std::make_unique<Object>(original.type(), original.groups());
    if (original.handle() != 0) {
        made->setHandle(target_.newHandle());
        handles_[original.handle()] = made->handle();
    }
    for (const auto& part : original.parts()) made->mutableParts().push_back(copy(*part));
    for (const Object* child : source_.owned(original)) owned_.push_back(child);
    copies_.push_back(made.get());
    return made;
}

Block& ObjectCopier::copyBlock(const Block& original, const std::wstring& name) {
    auto made = std::make_unique<Block>();
    if (original.record) {
        auto record = copy(*original.record);
        record->set(textGroup(2, name));
        made->record = &target_.adopt(target_.findTable(L"BLOCK_RECORD")->records, std::move(record));
    }
    made->begin = copy(*original.begin);
    made->begin->set(textGroup(2, name));
    made->begin->set(textGroup(3, name));
    made->end = copy(*original.end);
    made->entities.reserve(original.entities.size());
    for (const auto& entity : original.entities) made->entities.push_back(copy(*entity));
    return target_.addBlock(std::move(made));
}

void ObjectCopier::finish() {
    while (!owned_.empty() || !copies_.empty()) {
        if (!owned_.empty()) {
            const Object& original = *owned_.back();
            owned_.pop_back();
            if (!handles_.contains(original.handle())) target_.adopt(target_.objects_, copy(original));
        } else {
            Object& object = *copies_.back();
            copies_.pop_back();
            rewrite(object);
        }
    }
}

void ObjectCopier::rewrite(Object& copy) {
    rewriteReactors(copy);
    for (Group& group : copy.mutableGroups()) rewriteHandle(copy, group);
    if (!sameDrawing()) bringNamed(copy);
}

/// An object keeps as reactors only its owner and what was copied with it: nobody else knows the copy. The
/// list of a block's references is not taken over at all.
void ObjectCopier::rewriteReactors(Object& copy) {
    const Handle owner = copy.owner();
    std::string list;
    std::erase_if(copy.mutableGroups(), [&](const Group& group) {
        if (group.code == 102) {
            list = group.value;
            return false;
        }
        if (list == "{BLKREFS") return true;
        const Handle handle = group.handle();
        return list == "{ACAD_REACTORS" && !handles_.contains(handle) && !(sameDrawing() && handle == owner);
    });
}

void ObjectCopier::rewriteHandle(const Object& copy, Group& group) {
    // The draw order of a block names entities under 5 too, beside its own handle.
    const bool drawOrder =
        copy.type() == "SORTENTSTABLE" && group.code == 5 && group.handle() != copy.handle();
    if (!isPointer(group.code) && !drawOrder) return;
    const Handle original = group.handle();
    if (original == 0) return;
    const auto found = handles_.find(original);
    if (found != handles_.end())
        group = handleGroup(group.code, found->second);
    else if (!sameDrawing())
        group = handleGroup(group.code, resolve(original, isHardPointer(group.code)));
}

/// The target's counterpart of an object that was not copied; 0 when there is none.
Handle ObjectCopier::resolve(Handle handle, bool hard) {
    const Object* original = source_.find(handle);
    const Object* owner = original ? source_.find(original->owner()) : nullptr;
    if (!owner) return 0;
    if (owner->type() == "TABLE") return resolveRecord(*owner, *original);
    return hard && isDictionary(*owner) ? resolveEntry(*owner, *original) : 0;
}

Handle ObjectCopier::resolveRecord(const Object& tableHead, const Object& original) {
    Table* table = target_.findTable(tableHead.text(2));
    if (!table) return 0;
    if (original.type() == "BLOCK_RECORD") return resolveBlock(original);
    const Object* same = target_.findRecord(*table, original.text(2));
    const Handle result = same ? same->handle() : target_.adopt(table->records, copy(original)).handle();
    handles_[original.handle()] = result;
    return result;
}

Handle ObjectCopier::resolveBlock(const Object& record) {
    const Block* block = source_.findBlock(record.handle());
    if (!block || block->isLayout()) return 0;
    const Block* same = isAnonymous(block->name()) ? nullptr : target_.findBlock(block->name());
    const Handle result = same ? same->handle() : copyBlock(*block, freeBlockName(block->name())).handle();
    handles_[record.handle()] = result;
    return result;
}

/// Named objects (materials, styles, images, ...) stand in dictionaries that stand in the root dictionary.
Handle ObjectCopier::resolveEntry(const Object& dictionary, const Object& original) {
    const std::wstring kind = dictionaryName(source_.rootDictionary(), dictionary.handle());
    const std::wstring name = dictionaryName(dictionary, original.handle());
    if (kind.empty() || name.empty()) return 0;
    Object& counterpart = target_.namedDictionary(kind);
    Handle result = dictionaryEntry(counterpart, name);
    if (result == 0) {
        handles_[dictionary.handle()] = counterpart.handle();
        result = target_.adopt(target_.objects_, copy(original)).handle();
        addDictionaryEntry(counterpart, name, result);
    }
    handles_[original.handle()] = result;
    return result;
}

void ObjectCopier::bringNamed(Object& copy) {
    for (const Group& group : copy.groups()) {
        const std::wstring_view table = tableNamedBy(copy, group.code);
        if (!table.empty()) bringRecord(table, group.text());
    }
    if (Group* name = blockNameOf(copy)) bringBlock(*name);
}

void ObjectCopier::bringRecord(std::wstring_view tableName, const std::wstring& name) {
    if (!brought_.emplace(tableName, folded(name)).second) return;
    const Table* table = source_.findTable(tableName);
    const Object* original = table ? source_.findRecord(*table, name) : nullptr;
    if (original && !handles_.contains(original->handle())) resolveRecord(*table->head, *original);
}

void ObjectCopier::bringBlock(Group& name) {
    const Block* block = source_.findBlock(name.text());
    if (!block || !block->record) return;
    const auto known = handles_.find(block->handle());
    const Handle record = known != handles_.end() ? known->second : resolveBlock(*block->record);
    if (const Block* there = target_.findBlock(record)) name = textGroup(2, there->name());
}

/// The name itself, or for an anonymous block the next free one of its kind ("*U1", "*D7").
std::wstring ObjectCopier::freeBlockName(const std::wstring& original) const {
    if (!isAnonymous(original)) return original;
    const std::wstring kind = original.substr(0, 2);
    std::size_t number = target_.blocks().size();
    while (target_.findBlock(kind + std::to_wstring(number))) ++number;
    return kind + std::to_wstring(number);
}

}  // namespace demo
