#include "win32/com/ComArguments.h"

namespace blattwart {

namespace {

/// The content, or a reference to it. The content stays its owner either way.
VARIANT pass(Variant& content, bool byReference) {
    if (!byReference) return content.get();
    VARIANT reference;
    VariantInit(&reference);
    if (V_VT(&content.get()) == VT_R8) {
        V_VT(&reference) = VT_BYREF | VT_R8;
        V_R8REF(&reference) = &V_R8(&content.get());
    } else {
        V_VT(&reference) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&reference) = &content.get();
    }
    return reference;
}

}  // namespace

ComArguments::ComArguments(std::span<const Argument> arguments, ObjectBorder& objects)
    : arguments_(arguments) {
    contents_.reserve(arguments.size());
    for (const Argument& argument : arguments) contents_.push_back(toVariant(argument.value(), objects));
    for (std::size_t i = arguments.size(); i-- > 0;) {
        passed_.push_back(pass(contents_[i], arguments[i].byReference()));
    }
    parameters_.rgvarg = passed_.data();
    parameters_.cArgs = static_cast<UINT>(passed_.size());
}

void ComArguments::assignChanged(ObjectBorder& objects) {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        if (arguments_[i].byReference()) arguments_[i].assign(fromVariant(contents_[i].get(), objects));
    }
}

}  // namespace blattwart
