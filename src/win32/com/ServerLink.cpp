#include "win32/com/ServerLink.h"

#include <string>

#include "win32/com/ComError.h"
#include "win32/com/ComObject.h"

namespace blattwart {

DISPID ServerLink::memberId(IDispatch& object, const Member& member) {
    const auto key = std::pair(member.className, member.name);
    auto known = ids_.find(key);
    if (known == ids_.end()) {
        std::optional<DISPID> id;
        try {
            id = lookUp(object, member.name);
        } catch (const RuntimeError& error) {
            if (error.number() != hresult::unknownName) throw;
        }
        known = ids_.emplace(key, id).first;
    }
    if (!known->second) throwFailure(DISP_E_UNKNOWNNAME);
    return *known->second;
}

DISPID ServerLink::lookUp(IDispatch& object, std::wstring_view name) {
    std::wstring text(name);
    LPOLESTR names = text.data();
    DISPID id = DISPID_UNKNOWN;
    throwIfFailed(call([&] { return object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); }));
    return id;
}

ServerLink::Enumerating ServerLink::enumerating(std::wstring_view className) const {
    if (const auto known = enumerating_.find(className); known != enumerating_.end()) return known->second;
    // A program's enumerators are of one make.
    return anySeveral_ ? Enumerating::several : Enumerating::unknown;
}

void ServerLink::learn(std::wstring_view className, Enumerating manner) {
    enumerating_[className] = manner;
    if (manner == Enumerating::several) anySeveral_ = true;
}

ComPtr<IDispatch> ServerLink::toDispatch(const ObjectPtr& object) {
    const auto* comObject = dynamic_cast<const ComObject*>(object.get());
    if (!comObject) throwFailure(DISP_E_TYPEMISMATCH);
    return comObject->dispatch();
}

ObjectPtr ServerLink::fromDispatch(IDispatch* dispatch) {
    return std::make_shared<ComObject>(shared_from_this(), dispatch);
}

}  // namespace blattwart
