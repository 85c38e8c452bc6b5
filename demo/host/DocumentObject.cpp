#include "demo/host/DocumentObject.h"

#include "demo/host/BlockObject.h"
#include "demo/host/DrawingParts.h"
#include "demo/host/LayoutObject.h"
#include "demo/host/PlotObject.h"
#include "demo/host/RegisteredApplicationsObject.h"
#include "demo/host/Variables.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<DocumentObject>> DocumentObject::members() {
    using Self = DocumentObject;
    std::vector<MemberSlot<Self>> slots{
        property(0x01, L"ActiveLayout", &Self::activeLayout, &Self::putActiveLayout),
        property(0x02, L"ActiveSpace", &Self::activeSpace, &Self::putActiveSpace),
        property(0x12, L"Layouts", &Self::layouts),
        property(0x25, L"Plot", &Self::plot),
        property(0x19, L"RegisteredApplications", &Self::registeredApplications),
        method(0x2D, L"GetVariable", &Self::getVariable, 1),
        method(0x2E, L"SetVariable", &Self::setVariable, 2),
        method(0x32, L"HandleToObject", &Self::handleToObject, 1),
        method(0x33, L"ObjectIdToObject", &Self::objectIdToObject, 1),
        shortId(method(0x47, L"ObjectIdToObject32", &Self::objectIdToObject32, 1)),
        method(0x3B, L"SendCommand", &Self::sendCommand, 1),
    };
    for (const auto& slot : fileMembers()) slots.push_back(slot);
    return slots;
}

std::vector<MemberSlot<DocumentObject>> DocumentObject::fileMembers() {
    using Self = DocumentObject;
    return {
        property(0x1F, L"FullName", &Self::fullName), property(0x23, L"Name", &Self::name),
        property(0x24, L"Path", &Self::path),         property(0x26, L"ReadOnly", &Self::readOnly),
        property(0x27, L"Saved", &Self::saved),       property(0x3F, L"Active", &Self::active),
        method(0x36, L"Activate", &Self::activate),   method(0x37, L"Close", &Self::close, 0, 2),
        method(0x3A, L"Save", &Self::save),           method(0x39, L"SaveAs", &Self::saveAs, 1, 2),
    };
}

Value DocumentObject::name() {
    return document().name();
}

Value DocumentObject::path() {
    return document().folder();
}

Value DocumentObject::fullName() {
    return document().fullName();
}

Value DocumentObject::active() {
    return host().activeDocument() == documentPtr();
}

Value DocumentObject::saved() {
    return !document().modified();
}

Value DocumentObject::readOnly() {
    return document().readOnly();
}

Value DocumentObject::activate(Arguments) {
    host().activate(documentPtr());
    return {};
}

Value DocumentObject::save(Arguments) {
    document().save();
    return {};
}

Value DocumentObject::saveAs(Arguments arguments) {
    document().saveAs(textOf(arguments[0].value()));
    return {};
}

Value DocumentObject::close(Arguments arguments) {
    const bool saving = arguments.empty() || arguments[0].value().isEmpty() || boolOf(arguments[0].value());
    if (saving && arguments.size() > 1 && !arguments[1].value().isEmpty()) {
        document().saveAs(textOf(arguments[1].value()));
    } else if (saving && document().modified()) {
        document().save();
    }
    host().close(documentPtr());
    return {};
}

Value DocumentObject::sendCommand(Arguments arguments) {
    host().sendCommand(documentPtr(), textOf(arguments[0].value()));
    return {};
}

Value DocumentObject::setVariable(Arguments arguments) {
    demo::setVariable(host(), document(), textOf(arguments[0].value()), arguments[1].value());
    return {};
}

Value DocumentObject::getVariable(Arguments arguments) {
    return demo::getVariable(host(), document(), textOf(arguments[0].value()));
}

Value DocumentObject::activeSpace() {
    return static_cast<std::int32_t>(document().drawing().currentLayout().isModel() ? 1 : 0);
}

void DocumentObject::putActiveSpace(const Value& value) {
    const std::int64_t space = numberOf(value);
    Drawing& drawing = document().drawing();
    Layout* layout = space == 1 ? &drawing.modelLayout() : drawing.activePaperLayout();
    if (!layout || space < 0 || space > 1) throw failure(hostError::invalidInput);
    document().show(*layout);
}

Value DocumentObject::activeLayout() {
    return make<LayoutObject>(document().drawing().currentLayout().handle());
}

void DocumentObject::putActiveLayout(const Value& value) {
    const auto* object = value.as<ObjectPtr>();
    const auto layout = object ? std::dynamic_pointer_cast<LayoutObject>(*object) : nullptr;
    if (!layout) throw failure(hostError::typeMismatch);
    layout->makeCurrentIn(document());
}

Value DocumentObject::layouts() {
    return make<LayoutsObject>();
}

Value DocumentObject::plot() {
    return make<PlotObject>();
}

Value DocumentObject::registeredApplications() {
    return make<RegisteredApplicationsObject>();
}

Value DocumentObject::handleToObject(Arguments arguments) {
    return objectOf(parseHandle(textOf(arguments[0].value())).value_or(0));
}

Value DocumentObject::objectIdToObject(Arguments arguments) {
    const Value& id = arguments[0].value();
    if (options().wideIds ? !id.is<std::int64_t>() : !id.is<std::int32_t>()) {
        throw failure(hostError::typeMismatch);
    }
    return objectOf(document().objectOfNumber(numberOfId(numberOf(id), options())));
}

Value DocumentObject::objectIdToObject32(Arguments arguments) {
    if (!arguments[0].value().is<std::int32_t>()) throw failure(hostError::typeMismatch);
    return objectOf(document().objectOfNumber(numberOfShortId(numberOf(arguments[0].value()))));
}

Value DocumentObject::objectOf(Handle handle) const {
    const Object* object = document().drawing().find(handle);
    if (!object) throw failure(hostError::keyNotFound);
    return makeDrawingObject(hostPtr(), documentPtr(), *object);
}

}  // namespace demo
