#include "demo/host/BlockObject.h"

#include "demo/host/LayoutObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<BlockObject>> BlockObject::members() {
    using Self = BlockObject;
    return withOwnMembers<Self>({
        property(0x600, L"Count", &Self::count),
        property(0x601, L"Name", &Self::name),
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

Value BlockObject::name() {
    return block().name;
}

}  // namespace demo
