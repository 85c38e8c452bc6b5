#include "demo/host/BlockObject.h"

#include "demo/host/LayoutObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<BlockObject>> BlockObject::members() {
    using Self = BlockObject;
    return withOwnMembers<Self>({
        method(0x00, L"Item", &Self::item, 1),
        property(0x600, L"Count", &Self::count),
        property(0x601, L"Name", &Self::name),
        property(0x603, L"IsLayout", &Self::isLayout),
        property(0x604, L"Layout", &Self::layout),
    });
}

Block& BlockObject::block() const {
    Block* found = drawing().findBlock(handle());
    if (!found) throw failure(hostError::objectErased);
    return *found;
}

void BlockObject::erase() {
    // Clients of this host never delete whole blocks; like the blocks of layouts they are in use.
    throw failure(hostError::invalidInput);
}

std::vector<ObjectPtr> BlockObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const auto& entity : block().entities) {
        objects.push_back(makeDrawingObject(hostPtr(), documentPtr(), *entity));
    }
    return objects;
}

Value BlockObject::count() {
    return static_cast<std::int32_t>(block().entities.size());
}

Value BlockObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    const auto& entities = block().entities;
    const std::int64_t position = index.position.value_or(-1);
    if (position < 0 || position >= static_cast<std::int64_t>(entities.size())) {
        throw failure(hostError::invalidInput);
    }
    return makeDrawingObject(hostPtr(), documentPtr(), *entities[static_cast<std::size_t>(position)]);
}

Value BlockObject::name() {
    return block().name;
}

Value BlockObject::isLayout() {
    return block().isLayout();
}

Value BlockObject::layout() {
    const Layout* found = block().layout;
    if (!found) throw failure(hostError::keyNotFound);
    return make<LayoutObject>(found->handle());
}

std::vector<MemberSlot<BlocksObject>> BlocksObject::members() {
    using Self = BlocksObject;
    return {
        method(0x00, L"Item", &Self::item, 1),
        property(0x01, L"Count", &Self::count),
    };
}

std::vector<ObjectPtr> BlocksObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const auto& block : document().drawing().blocks()) {
        objects.push_back(make<BlockObject>(block->handle()));
    }
    return objects;
}

Value BlocksObject::count() {
    return static_cast<std::int32_t>(document().drawing().blocks().size());
}

Value BlocksObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    const auto& blocks = document().drawing().blocks();
    if (!index.position) {
        const Block* block = document().drawing().findBlock(index.name);
        if (!block) throw failure(hostError::keyNotFound);
        return make<BlockObject>(block->handle());
    }
    if (*index.position < 0 || *index.position >= static_cast<std::int64_t>(blocks.size())) {
        throw failure(hostError::invalidInput);
    }
    return make<BlockObject>(blocks[static_cast<std::size_t>(*index.position)]->handle());
}

}  // namespace demo
