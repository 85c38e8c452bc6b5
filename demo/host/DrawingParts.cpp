#include "demo/host/DrawingParts.h"

#include <limits>

#include "demo/host/BlockObject.h"
#include "demo/host/EntityObject.h"
#include "demo/host/LayoutObject.h"
#include "demo/host/XDataArrays.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

struct IdSpace {
    std::int64_t base;
    std::int64_t step;
};

constexpr IdSpace narrowIds{0x7EF00000, 8};
constexpr IdSpace wideIds{0x7FFFF6000000, 16};
constexpr IdSpace shortIds{1000, 1};

std::int64_t idIn(const IdSpace& space, std::int32_t number) {
    return space.base + number * space.step;
}

std::int32_t numberIn(const IdSpace& space, std::int64_t id) {
    const std::int64_t distance = id - space.base;
    const std::int64_t number = distance / space.step;
    const bool possible =
        distance > 0 && distance % space.step == 0 && number <= std::numeric_limits<std::int32_t>::max();
    return possible ? static_cast<std::int32_t>(number) : 0;
}

}  // namespace

std::int64_t idOfNumber(std::int32_t number, const HostOptions& options) {
    return idIn(options.wideIds ? wideIds : narrowIds, number);
}

std::int32_t numberOfId(std::int64_t id, const HostOptions& options) {
    return numberIn(options.wideIds ? wideIds : narrowIds, id);
}

std::int32_t shortIdOfNumber(std::int32_t number) {
    return static_cast<std::int32_t>(idIn(shortIds, number));
}

std::int32_t numberOfShortId(std::int64_t id) {
    return numberIn(shortIds, id);
}

Object& DrawingPart::object() const {
    Object* found = drawing().find(handle_);
    if (!found) throw failure(hostError::objectErased);
    return *found;
}

Value DrawingPart::handleValue() {
    return handleText(object().handle());
}

Value DrawingPart::objectName() {
    object();
    return className();
}

Value DrawingPart::getXData(Arguments arguments) {
    if (!arguments[1].byReference() || !arguments[2].byReference()) throw failure(hostError::typeMismatch);
    const XData data = object().xdata(textOf(arguments[0].value()));
    if (data.empty()) return {};
    arguments[1].assign(xdataTypes(data));
    arguments[2].assign(xdataValues(data));
    return {};
}

Value DrawingPart::setXData(Arguments arguments) {
    const auto* types = arguments[0].value().as<blattwart::ShortArray>();
    const auto* values = arguments[1].value().as<blattwart::ValueArray>();
    if (!types || !values) throw failure(hostError::typeMismatch);
    const XData data = xdataOf(*types, *values, options().language);
    for (const XDataItem& item : data)
        if (item.code == 1001) drawing().registerApplication(std::get<std::wstring>(item.value));
    drawing().setXData(object(), data);
    document().setModified();
    return {};
}

Value DrawingPart::remove(Arguments) {
    object();
    erase();
    document().setModified();
    return {};
}

Value DrawingPart::objectId() {
    return wideOrNarrow(idOfNumber(document().objectNumber(object().handle()), options()));
}

Value DrawingPart::objectId32() {
    return shortIdOfNumber(document().objectNumber(object().handle()));
}

ObjectPtr makeDrawingObject(const HostPtr& host, const DocumentPtr& document, const Object& object) {
    const Handle handle = object.handle();
    const std::string& type = object.type();
    if (type == "LAYOUT") return heldObject<LayoutObject>(host, document, handle);
    if (type == "BLOCK_RECORD") return heldObject<BlockObject>(host, document, handle);
    if (type == "VIEWPORT") return heldObject<ViewportObject>(host, document, handle);
    if (type == "INSERT") return heldObject<BlockReferenceObject>(host, document, handle);
    return heldObject<EntityObject>(host, document, handle);
}

}  // namespace demo
