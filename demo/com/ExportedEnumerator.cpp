#include <algorithm>

#include "demo/com/ExportedObject.h"

namespace demo {

using blattwart::RuntimeError;
using blattwart::toVariant;
using blattwart::Value;

HRESULT ExportedEnumerator::Next(ULONG count, VARIANT* elements, ULONG* fetched) {
    if (fetched) *fetched = 0;
    if (const HRESULT admitted = exporter_->admit(); admitted != S_OK) return admitted;
    ++exporter_->counters().nexts;
    const auto available = static_cast<ULONG>(std::min<std::size_t>(count, elements_.size() - position_));
    try {
        for (ULONG i = 0; i < available; ++i) {
            elements[i] = toVariant(Value(elements_[position_ + i]), *exporter_).release();
        }
    } catch (const RuntimeError& error) {
        return error.number();
    }
    position_ += available;
    if (fetched) *fetched = available;
    exporter_->complete();
    return available == count ? S_OK : S_FALSE;
}

HRESULT ExportedEnumerator::Skip(ULONG count) {
    const std::size_t skipped = std::min<std::size_t>(count, elements_.size() - position_);
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
}

HRESULT ExportedEnumerator::Reset() {
    position_ = 0;
    return S_OK;
}

HRESULT ExportedEnumerator::Clone(IEnumVARIANT** copy) {
    if (!copy) return E_POINTER;
    *copy = blattwart::makeCom<ExportedEnumerator>(exporter_, elements_, position_).Detach();
    return S_OK;
}

}  // namespace demo
