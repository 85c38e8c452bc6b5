#include "demo/host/DocumentsObject.h"

#include "demo/dxf/Text.h"
#include "demo/host/DocumentObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<DocumentsObject>> DocumentsObject::members() {
    using Self = DocumentsObject;
    return {
        method(0x00, L"Item", &Self::item, 1),  property(0x01, L"Count", &Self::count),
        method(0x03, L"Add", &Self::add, 0, 1), method(0x04, L"Open", &Self::open, 1, 2),
        method(0x05, L"Close", &Self::close),
    };
}

std::vector<ObjectPtr> DocumentsObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const auto& document : host().documents()) objects.push_back(objectOf(document));
    return objects;
}

Value DocumentsObject::count() {
    return static_cast<std::int32_t>(host().documents().size());
}

Value DocumentsObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    std::int64_t position = 0;
    for (const auto& document : host().documents()) {
        const bool wanted =
            index.position ? *index.position == position : sameName(document->name(), index.name);
        if (wanted) return objectOf(document);
        ++position;
    }
    throw failure(index.position ? hostError::invalidInput : hostError::keyNotFound);
}

Value DocumentsObject::add(Arguments arguments) {
    const bool named = !arguments.empty() && !arguments[0].value().isEmpty();
    return objectOf(host().newDocument(named ? textOf(arguments[0].value()) : L""));
}

Value DocumentsObject::open(Arguments arguments) {
    const bool readOnly =
        arguments.size() > 1 && !arguments[1].value().isEmpty() && boolOf(arguments[1].value());
    return objectOf(host().openFile(textOf(arguments[0].value()), readOnly));
}

Value DocumentsObject::close(Arguments) {
    while (!host().documents().empty()) host().close(host().documents().back());
    return {};
}

ObjectPtr DocumentsObject::objectOf(const DocumentPtr& document) const {
    return heldObject<DocumentObject>(hostPtr(), document);
}

}  // namespace demo
