#pragma once

#include <windows.h>

#include <unknwn.h>

namespace blattwart {

/// Reference counting of an object with one COM interface; begins with one reference.
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

}  // namespace blattwart
