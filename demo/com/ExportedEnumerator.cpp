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
    const EnumeratorManner manner = exporter_->enumeratorManner;
    if (manner == EnumeratorManner::none) return E_NOTIMPL;
    if (manner == EnumeratorManner::endless && position_ == elements_.size()) position_ = 0;
    const ULONG most = manner == EnumeratorManner::single ? 1 : count;
    const auto available = static_cast<ULONG>(std::min<std::size_t>(most, elements_.size() - position_));
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
    if (manner == EnumeratorManner::asAsked) return available == count ? S_OK : S_FALSE;
    return manner == EnumeratorManner::single ? S_FALSE : S_OK;
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
