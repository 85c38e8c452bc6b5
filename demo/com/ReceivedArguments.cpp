#include "demo/com/ReceivedArguments.h"

namespace demo {

using blattwart::RuntimeError;
using blattwart::Value;
using blattwart::Variant;

namespace {

/// An argument left out arrives as an error value.
Value valueOf(const VARIANT& variant, Exporter& exporter) {
    return V_VT(&variant) == VT_ERROR ? Value() : blattwart::fromVariant(variant, exporter);
}

void store(VARIANT& target, Variant content) {
    if (V_VT(&target) == (VT_BYREF | VT_VARIANT)) {
        VariantClear(V_VARIANTREF(&target));
        *V_VARIANTREF(&target) = content.release();
        return;
    }
    if (V_VT(&target) != (VT_BYREF | VT_R8)) throw RuntimeError(DISP_E_TYPEMISMATCH, L"");
    Variant number;
    if (FAILED(VariantChangeType(number.put(), &content.get(), 0, VT_R8))) {
        throw RuntimeError(DISP_E_TYPEMISMATCH, L"");
    }
    *V_R8REF(&target) = V_R8(&number.get());
}

}  // namespace

ReceivedArguments::ReceivedArguments(DISPPARAMS& parameters, Exporter& exporter) : parameters_(parameters) {
    for (std::size_t i = 0; i < parameters.cArgs; ++i) before_.push_back(valueOf(received(i), exporter));
    after_ = before_;
    for (std::size_t i = 0; i < parameters.cArgs; ++i) {
        if (V_ISBYREF(&received(i))) {
            arguments_.emplace_back(&after_[i]);
        } else {
            arguments_.emplace_back(after_[i]);
        }
    }
}

void ReceivedArguments::writeBack(Exporter& exporter) {
    for (std::size_t i = 0; i < after_.size(); ++i) {
        if (!(after_[i] == before_[i])) store(received(i), blattwart::toVariant(after_[i], exporter));
    }
}

}  // namespace demo
