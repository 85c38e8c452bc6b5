#include "demo/com/Exporter.h"

#include "demo/com/ExportedObject.h"

namespace demo {

using blattwart::RuntimeError;

ComPtr<IDispatch> Exporter::toDispatch(const ObjectPtr& object) {
    if (const auto known = alive_.find(object.get()); known != alive_.end()) return known->second;
    auto dispatchObject = std::dynamic_pointer_cast<DispatchObject>(object);
    if (!dispatchObject) throw RuntimeError(DISP_E_TYPEMISMATCH, L"");
    const auto made = blattwart::makeCom<ExportedObject>(shared_from_this(), std::move(dispatchObject));
    alive_.emplace(object.get(), made.Get());
    ++counters_.objects;
    return made;
}

ObjectPtr Exporter::fromDispatch(IDispatch* dispatch) {
    for (const auto& [object, exported] : alive_) {
        if (static_cast<IDispatch*>(exported) == dispatch) return exported->object();
    }
    throw RuntimeError(DISP_E_TYPEMISMATCH, L"");
}

HRESULT Exporter::admit() {
    const HRESULT result = admission_ ? admission_() : S_OK;
    if (result != S_OK) ++counters_.refused;
    return result;
}

void Exporter::forget(const blattwart::AutomationObject* object) {
    alive_.erase(object);
    ++counters_.released;
}

}  // namespace demo
