#include "demo/host/LayoutObject.h"

#include "demo/host/BlockObject.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<LayoutObject>> LayoutObject::members() {
    using Self = LayoutObject;
    std::vector<MemberSlot<Self>> own{
        property(0x01, L"Name", &Self::name, &Self::putName),
        property(0x02, L"ModelType", &Self::modelType),
        property(0x21, L"Block", &Self::block),
        property(0x22, L"TabOrder", &Self::tabOrder, &Self::putTabOrder),
    };
    for (const auto& slot : plotMembers()) own.push_back(slot);
    return withOwnMembers<Self>(std::move(own));
}

Layout& LayoutObject::layout() const {
    Layout* found = drawing().findLayout(handle());
    if (!found) throw failure(hostError::objectErased);
    return *found;
}

void LayoutObject::makeCurrentIn(OpenDocument& target) const {
    checkReachable();
    if (&target != &document()) throw failure(hostError::invalidInput);
    document().show(layout());
}

void LayoutObject::erase() {
    drawing().deleteLayout(layout());
}

Value LayoutObject::name() {
    return document().layoutName(layout());
}

void LayoutObject::putName(const Value& value) {
    const std::wstring wanted = textOf(value);
    const Layout* holder = document().findLayout(wanted);
    const bool ownName = holder == &layout() && (!options().caseIsTaken || name() == Value(wanted));
    if (holder && !ownName) throw failure(hostError::duplicateKey);
    drawing().renameLayout(layout(), wanted);
    document().setModified();
}

Value LayoutObject::modelType() {
    return layout().isModel();
}

Value LayoutObject::tabOrder() {
    return document().tabNumber(layout());
}

void LayoutObject::putTabOrder(const Value& value) {
    document().putTabNumber(layout(), static_cast<std::int32_t>(numberOf(value)));
    document().setModified();
}

Value LayoutObject::block() {
    return make<BlockObject>(layout().blockRecord());
}

std::vector<MemberSlot<LayoutsObject>> LayoutsObject::members() {
    using Self = LayoutsObject;
    return {
        method(0x00, L"Item", &Self::item, 1),
        property(0x01, L"Count", &Self::count),
        method(0x02, L"Add", &Self::add, 1),
    };
}

std::vector<ObjectPtr> LayoutsObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const Layout* layout : document().layoutsByName()) {
        objects.push_back(make<LayoutObject>(layout->handle()));
    }
    return objects;
}

Value LayoutsObject::count() {
    return static_cast<std::int32_t>(document().drawing().layouts().size());
}

Value LayoutsObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    if (!index.position) {
        const Layout* layout = document().findLayout(index.name);
        if (!layout) throw failure(hostError::keyNotFound);
        return make<LayoutObject>(layout->handle());
    }
    const auto layouts = document().layoutsByName();
    if (*index.position < 0 || *index.position >= static_cast<std::int64_t>(layouts.size())) {
        throw failure(hostError::invalidInput);
    }
    return make<LayoutObject>(layouts[static_cast<std::size_t>(*index.position)]->handle());
}

Value LayoutsObject::add(Arguments arguments) {
    const std::wstring name = textOf(arguments[0].value());
    if (document().findLayout(name)) throw failure(hostError::duplicateKey);
    const Handle handle = document().drawing().addLayout(name).handle();
    document().setModified();
    return make<LayoutObject>(handle);
}

}  // namespace demo
