#pragma once

#include <memory>
#include <vector>

#include "demo/com/Exporter.h"
#include "win32/com/ComBase.h"

namespace demo {

/// One object as other processes see it.
class ExportedObject final : public blattwart::ComBase<IDispatch> {
  public:
    ExportedObject(std::shared_ptr<Exporter> exporter, std::shared_ptr<DispatchObject> object)
        : exporter_(std::move(exporter)), object_(std::move(object)) {}
    ~ExportedObject() override { exporter_->forget(object_.get()); }

    const std::shared_ptr<DispatchObject>& object() const { return object_; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    HRESULT tryOut(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception);
    HRESULT carryOut(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result);
    HRESULT newEnumerator(VARIANT* result);
    HRESULT answer(const blattwart::RuntimeError& error, EXCEPINFO* exception) const;

    std::shared_ptr<Exporter> exporter_;
    std::shared_ptr<DispatchObject> object_;
};

/// Runs through the elements that a collection had when the enumeration began.
class ExportedEnumerator final : public blattwart::ComBase<IEnumVARIANT> {
  public:
    ExportedEnumerator(std::shared_ptr<Exporter> exporter, std::vector<ObjectPtr> elements,
                       std::size_t position = 0)
        : exporter_(std::move(exporter)), elements_(std::move(elements)), position_(position) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* elements, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

  private:
    std::shared_ptr<Exporter> exporter_;
    std::vector<ObjectPtr> elements_;
    std::size_t position_;
};

}  // namespace demo
