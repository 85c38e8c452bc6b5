#include "win32/com/ComAutomation.h"

#include <objbase.h>

#include "win32/com/ComError.h"

namespace blattwart {

namespace {

CLSID classNamed(std::wstring_view name) {
    CLSID id{};
    throwIfFailed(CLSIDFromProgID(std::wstring(name).c_str(), &id));
    return id;
}

HRESULT makeInstance(const CLSID& id, DWORD context, ComPtr<IDispatch>& dispatch) {
    return CoCreateInstance(id, nullptr, context, IID_IDispatch,
                            reinterpret_cast<void**>(dispatch.ReleaseAndGetAddressOf()));
}

HRESULT activeInstance(const CLSID& id, ComPtr<IDispatch>& dispatch) {
    ComPtr<IUnknown> unknown;
    const HRESULT result = GetActiveObject(id, nullptr, unknown.GetAddressOf());
    if (FAILED(result)) return result;
    return unknown->QueryInterface(IID_IDispatch,
                                   reinterpret_cast<void**>(dispatch.ReleaseAndGetAddressOf()));
}

bool isSameObject(IDispatch* a, IDispatch* b) {
    ComPtr<IUnknown> identityOfA;
    ComPtr<IUnknown> identityOfB;
    const auto ask = [](IDispatch* object, ComPtr<IUnknown>& identity) {
        return object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(identity.GetAddressOf()));
    };
    return SUCCEEDED(ask(a, identityOfA)) && SUCCEEDED(ask(b, identityOfB)) &&
           identityOfA.Get() == identityOfB.Get();
}

}  // namespace

ComAutomation::ComAutomation(HostCaller& hostCaller)
    : hostCaller_(hostCaller), filter_(hostCaller), components_(std::make_shared<ServerLink>(nullptr)) {}

ObjectPtr ComAutomation::running(std::wstring_view name) {
    const CLSID id = classNamed(name);
    ComPtr<IDispatch> dispatch;
    throwIfFailed(hostCaller_.call([&] { return activeInstance(id, dispatch); }));
    return application(dispatch);
}

ObjectPtr ComAutomation::create(std::wstring_view name) {
    const CLSID id = classNamed(name);
    ComPtr<IDispatch> dispatch;
    const HRESULT result = makeInstance(id, CLSCTX_INPROC_SERVER, dispatch);
    if (SUCCEEDED(result)) return components_->fromDispatch(dispatch.Get());
    if (result != REGDB_E_CLASSNOTREG) throwIfFailed(result);
    throwIfFailed(hostCaller_.call([&] { return makeInstance(id, CLSCTX_LOCAL_SERVER, dispatch); }));
    return application(dispatch);
}

/// The application object that is known already as long as it is the same one; another application may know
/// its members by other ids.
ObjectPtr ComAutomation::application(const ComPtr<IDispatch>& dispatch) {
    if (auto known = application_.lock(); known && isSameObject(known->dispatch().Get(), dispatch.Get())) {
        return known;
    }
    const auto made = std::make_shared<ComObject>(std::make_shared<ServerLink>(&hostCaller_), dispatch);
    application_ = made;
    return made;
}

}  // namespace blattwart
