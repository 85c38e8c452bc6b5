#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

#include <utility>

namespace blattwart {

/// Reference counting of an object with one COM interface; begins with one reference, see `makeCom`.
template <class Interface>
class ComBase : public Interface {
  public:
    ComBase() = default;
    ComBase(const ComBase&) = delete;
    ComBase& operator=(const ComBase&) = delete;
    virtual ~ComBase() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(Interface);
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

  private:
    ULONG references_ = 1;
};

/// Makes an object and takes over its first reference. `Attach` of the compiler's own ComPtr would add
/// another one.
template <class Object, class... Arguments>
Microsoft::WRL::ComPtr<Object> makeCom(Arguments&&... arguments) {
    Microsoft::WRL::ComPtr<Object> object;
    *object.GetAddressOf() = new Object(std::forward<Arguments>(arguments)...);
    return object;
}

}  // namespace blattwart
