#include "demo/host/EntityObject.h"

namespace demo {

using blattwart::Value;

void EntityPart::erase() {
    drawing().erase(object());
}

Value EntityPart::layer() {
    return object().layer();
}

std::vector<MemberSlot<EntityObject>> EntityObject::members() {
    return withEntityMembers<EntityObject>({});
}

std::vector<MemberSlot<ViewportObject>> ViewportObject::members() {
    return withEntityMembers<ViewportObject>({property(0x13, L"CustomScale", &ViewportObject::customScale)});
}

Value ViewportObject::customScale() {
    const double viewHeight = object().number(45);
    return viewHeight > 0 ? object().number(41) / viewHeight : 1.0;
}

std::vector<MemberSlot<BlockReferenceObject>> BlockReferenceObject::members() {
    using Self = BlockReferenceObject;
    return withEntityMembers<Self>({
        property(0x02, L"Name", &Self::name),
        property(0x18, L"EffectiveName", &Self::effectiveName),
    });
}

std::wstring BlockReferenceObject::className() const {
    const bool array = object().integer(70, 1) > 1 || object().integer(71, 1) > 1;
    return array ? L"AcDbMInsertBlock" : L"AcDbBlockReference";
}

const Block* BlockReferenceObject::dynamicBlock() const {
    const Block* block = drawing().findBlock(object().text(2));
    if (!block) return nullptr;
    for (const XDataItem& item : block->xdata(L"AcDbBlockRepBTag")) {
        if (item.code != 1005) continue;
        const auto definition = parseHandle(std::get<std::wstring>(item.value));
        return definition ? drawing().findBlock(*definition) : nullptr;
    }
    return nullptr;
}

Value BlockReferenceObject::name() {
    return object().text(2);
}

Value BlockReferenceObject::effectiveName() {
    const Block* definition = dynamicBlock();
    return definition ? definition->name : object().text(2);
}

}  // namespace demo
