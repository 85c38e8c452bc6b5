#include "win32/com/ComSession.h"

#include <string>

#include "win32/com/ComError.h"
#include "win32/com/ComObject.h"

namespace blattwart {

DISPID ComSession::memberId(IDispatch& object, const Member& member) {
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

DISPID ComSession::lookUp(IDispatch& object, std::wstring_view name) {
    std::wstring text(name);
    LPOLESTR names = text.data();
    DISPID id = DISPID_UNKNOWN;
    throwIfFailed(call([&] { return object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); }));
    return id;
}

ComPtr<IDispatch> ComSession::toDispatch(const ObjectPtr& object) {
    const auto* comObject = dynamic_cast<const ComObject*>(object.get());
    if (!comObject) throwFailure(DISP_E_TYPEMISMATCH);
    return comObject->dispatch();
}

ObjectPtr ComSession::fromDispatch(IDispatch* dispatch) {
    return std::make_shared<ComObject>(shared_from_this(), dispatch);
}

}  // namespace blattwart
