#include "demo/host/RegisteredApplicationsObject.h"

#include "demo/dxf/Text.h"

namespace demo {

using blattwart::ObjectPtr;
using blattwart::Value;

std::vector<MemberSlot<RegisteredApplicationObject>> RegisteredApplicationObject::members() {
    return {property(0x200, L"Name", &RegisteredApplicationObject::name)};
}

Value RegisteredApplicationObject::name() {
    return name_;
}

std::vector<MemberSlot<RegisteredApplicationsObject>> RegisteredApplicationsObject::members() {
    using Self = RegisteredApplicationsObject;
    return {
        method(0x00, L"Item", &Self::item, 1),
        property(0x01, L"Count", &Self::count),
        method(0x02, L"Add", &Self::add, 1),
    };
}

std::vector<ObjectPtr> RegisteredApplicationsObject::allElements() {
    checkReachable();
    std::vector<ObjectPtr> objects;
    for (const auto& name : document().drawing().applications()) {
        objects.push_back(application(name));
    }
    return objects;
}

Value RegisteredApplicationsObject::count() {
    return static_cast<std::int32_t>(document().drawing().applications().size());
}

Value RegisteredApplicationsObject::item(Arguments arguments) {
    const CollectionIndex index = collectionIndex(arguments[0].value(), options().language);
    std::int64_t position = 0;
    for (const auto& name : document().drawing().applications()) {
        const bool wanted = index.position ? *index.position == position : sameName(name, index.name);
        if (wanted) return application(name);
        ++position;
    }
    throw failure(index.position ? hostError::invalidInput : hostError::keyNotFound);
}

Value RegisteredApplicationsObject::add(Arguments arguments) {
    const std::wstring name = textOf(arguments[0].value());
    document().drawing().registerApplication(name);
    return application(name);
}

ObjectPtr RegisteredApplicationsObject::application(const std::wstring& name) const {
    return std::make_shared<RegisteredApplicationObject>(hostPtr(), documentPtr(), name);
}

}  // namespace demo
