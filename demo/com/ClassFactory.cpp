#include "demo/com/ClassFactory.h"

#include "win32/com/ComBase.h"

namespace demo {

namespace {

class ClassFactory final : public blattwart::ComBase<IClassFactory> {
  public:
    explicit ClassFactory(Maker maker) : maker_(std::move(maker)) {}

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
};

}  // namespace

ComPtr<IClassFactory> makeClassFactory(Maker maker) {
    return blattwart::makeCom<ClassFactory>(std::move(maker));
}

}  // namespace demo
