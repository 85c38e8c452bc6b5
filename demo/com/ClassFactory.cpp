#include "com/ClassFactory.h"

namespace demo {

namespace {

class ClassFactory final : public IClassFactory {
  public:
    explicit ClassFactory(Maker maker) : maker_(std::move(maker)) {}
    virtual ~ClassFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        const bool known = id == IID_IUnknown || id == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
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

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            return maker_()->QueryInterface(id, object);
        } catch (const blattwart::RuntimeError& error) {
            return error.number();
        } catch (const std::exception&) {
            return E_UNEXPECTED;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    Maker maker_;
    ULONG references_ = 0;
};

}  // namespace

ComPtr<IClassFactory> makeClassFactory(Maker maker) {
    return ComPtr<IClassFactory>(new ClassFactory(std::move(maker)));
}

}  // namespace demo
