#include "demo/host/EntityObject.h"

#include <numbers>

#include "demo/dxf/Text.h"
#include "demo/host/EntityClass.h"

namespace demo {

using blattwart::DoubleArray;
using blattwart::Value;

namespace {

Value pointValue(const Point& point) {
    return DoubleArray(point.begin(), point.end());
}

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

}  // namespace

std::wstring EntityPart::className() const {
    return entityClass(drawing(), object()).name;
}

void EntityPart::erase() {
    drawing().erase(object());
}

Value EntityPart::layer() {
    return object().layer();
}

Value EntityPart::entityName() {
    return className();
}

Value EntityPart::entityType() {
    return entityClass(drawing(), object()).type;
}

std::vector<MemberSlot<EntityObject>> EntityObject::members() {
    return withEntityMembers<EntityObject>({});
}

std::vector<MemberSlot<ViewportObject>> ViewportObject::members() {
    using Self = ViewportObject;
    return withEntityMembers<Self>({
        property(0x01, L"Center", &Self::center),
        property(0x02, L"Height", &Self::height),
        property(0x03, L"Width", &Self::width),
        property(0x09, L"ViewportOn", &Self::viewportOn),
        property(0x0A, L"TwistAngle", &Self::twistAngle),
        property(0x11, L"DisplayLocked", &Self::displayLocked),
        property(0x12, L"StandardScale", &Self::standardScale),
        property(0x13, L"CustomScale", &Self::customScale),
    });
}

Value ViewportObject::center() {
    return pointValue(object().point(10));
}

Value ViewportObject::width() {
    return object().number(40);
}

Value ViewportObject::height() {
    return object().number(41);
}

Value ViewportObject::viewportOn() {
    constexpr std::int64_t off = 0x20000;
    return (object().integer(90) & off) == 0;
}

Value ViewportObject::displayLocked() {
    constexpr std::int64_t locked = 0x4000;
    return (object().integer(90) & locked) != 0;
}

Value ViewportObject::standardScale() {
    constexpr std::int32_t custom = 1;
    return custom;
}

Value ViewportObject::customScale() {
    const double viewHeight = object().number(45);
    return viewHeight > 0 ? object().number(41) / viewHeight : 1.0;
}

Value ViewportObject::twistAngle() {
    return radians(object().number(51));
}

std::vector<MemberSlot<BlockReferenceObject>> BlockReferenceObject::members() {
    using Self = BlockReferenceObject;
    std::vector<MemberSlot<Self>> own{
        property(0x02, L"Name", &Self::name),
        property(0x18, L"EffectiveName", &Self::effectiveName),
        property(0x17, L"IsDynamicBlock", &Self::isDynamicBlock),
    };
    for (const auto& slot : placementMembers()) own.push_back(slot);
    return withEntityMembers<Self>(std::move(own));
}

std::vector<MemberSlot<BlockReferenceObject>> BlockReferenceObject::placementMembers() {
    using Self = BlockReferenceObject;
    return {
        property(0x01, L"InsertionPoint", &Self::insertionPoint),
        property(0x03, L"Rotation", &Self::rotation),
        property(0x04, L"XScaleFactor", &Self::xScale),
        property(0x05, L"YScaleFactor", &Self::yScale),
        property(0x06, L"ZScaleFactor", &Self::zScale),
    };
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

Value BlockReferenceObject::isDynamicBlock() {
    return dynamicBlock() != nullptr;
}

Value BlockReferenceObject::insertionPoint() {
    return pointValue(object().point(10));
}

Value BlockReferenceObject::xScale() {
    return object().number(41, 1);
}

Value BlockReferenceObject::yScale() {
    return object().number(42, 1);
}

Value BlockReferenceObject::zScale() {
    return object().number(43, 1);
}

Value BlockReferenceObject::rotation() {
    return radians(object().number(50));
}

}  // namespace demo
