#include <algorithm>

#include "demo/dxf/Drawing.h"
#include "demo/dxf/Text.h"

/// Blocks of a drawing: each stands in the list of blocks, in the table of block records and in the look-ups.
namespace demo {

namespace {

Groups joined(Groups first, const Groups& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::unique_ptr<Object> made(std::string type, Groups groups, Handle handle, Handle owner) {
    auto object = std::make_unique<Object>(std::move(type), std::move(groups));
    object->setHandle(handle);
    object->setOwner(owner);
    return object;
}

}  // namespace

Block& Drawing::addBlock(std::unique_ptr<Block> block) {
    Block& added = *blocks_.emplace_back(std::move(block));
    enter(*added.begin);
    enter(*added.end);
    for (const auto& entity : added.entities) enter(*entity);
    blocksByName_.emplace(folded(added.name()), &added);
    if (added.record) blocksByRecord_.emplace(added.handle(), &added);
    return added;
}

/// Takes a block's objects out of the drawing and puts them to `removed`. The block itself is gone then.
void Drawing::takeBlock(Block& block, Objects& removed) {
    blocksByName_.erase(folded(block.name()));
    blocksByRecord_.erase(block.handle());
    Objects& records = findTable(L"BLOCK_RECORD")->records;
    const auto record = std::ranges::find_if(records, [&](const auto& r) { return r.get() == block.record; });
    removed.push_back(std::move(*record));
    records.erase(record);
    removed.push_back(std::move(block.begin));
    removed.push_back(std::move(block.end));
    std::ranges::move(block.entities, std::back_inserter(removed));
    std::erase_if(blocks_, [&](const auto& other) { return other.get() == &block; });
}

void Drawing::renameBlock(Block& block, const std::wstring& name) {
    blocksByName_.erase(folded(block.name()));
    if (block.record) block.record->set(textGroup(2, name));
    block.begin->set(textGroup(2, name));
    block.begin->set(textGroup(3, name));
    blocksByName_.emplace(folded(name), &block);
}

std::wstring Drawing::freePaperSpaceName() const {
    std::wstring name = L"*Paper_Space";
    for (int number = 0; findBlock(name); ++number) name = L"*Paper_Space" + std::to_wstring(number);
    return name;
}

/// A drawing without paper layouts has an empty block that waits for the first one.
Block* Drawing::idlePaperSpace() const {
    Block* block = findBlock(L"*Paper_Space");
    return block && block->record && !block->layout && block->entities.empty() ? block : nullptr;
}

/// The block for the content of a new layout.
Block& Drawing::newPaperSpaceBlock() {
    if (Block* idle = idlePaperSpace()) return *idle;

    Table* table = findTable(L"BLOCK_RECORD");
    const Group name = textGroup(2, freePaperSpaceName());
    const Handle record = newHandle();
    const Groups entity = {{100, "AcDbEntity"}, {67, "1"}, {8, "0"}};
    const Groups begin = {{100, "AcDbBlockBegin"}, name,   {70, "0"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"},
                          {3, name.value},         {1, ""}};
    auto block = std::make_unique<Block>();
    block->record =
        &adopt(table->records,
               made("BLOCK_RECORD",
                    {{100, "AcDbSymbolTableRecord"}, {100, "AcDbBlockTableRecord"}, name, {340, "0"}}, record,
                    table->head->handle()));
    block->begin = made("BLOCK", joined(entity, begin), newHandle(), record);
    block->end = made("ENDBLK", joined(entity, {{100, "AcDbBlockEnd"}}), newHandle(), record);
    return addBlock(std::move(block));
}

}  // namespace demo
