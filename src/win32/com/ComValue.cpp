#include "win32/com/ComValue.h"

#include <memory>
#include <new>
#include <type_traits>

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

[[noreturn]] void throwTypeMismatch() {
    throw RuntimeError(errorNumber::typeMismatch, L"Typen unverträglich.");
}

void check(HRESULT result) {
    if (FAILED(result)) throw RuntimeError(result, L"Ein Wert lässt sich nicht umwandeln.");
}

struct DestroyArray {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, DestroyArray>;

/// Direct access to the elements of a one-dimensional array.
template <class Element>
class LockedArray {
  public:
    explicit LockedArray(SAFEARRAY* array) : array_(array) {
        void* data = nullptr;
        check(SafeArrayAccessData(array_, &data));
        data_ = static_cast<Element*>(data);
    }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;
    ~LockedArray() { SafeArrayUnaccessData(array_); }

    Element* begin() const { return data_; }
    Element* end() const { return data_ + array_->rgsabound[0].cElements; }

  private:
    SAFEARRAY* array_;
    Element* data_ = nullptr;
};

template <class Element, class Source, class Convert>
VARIANT makeArray(VARTYPE type, const std::vector<Source>& source, Convert convert) {
    OwnedArray array(SafeArrayCreateVector(type, 0, static_cast<ULONG>(source.size())));
    if (!array) throw std::bad_alloc();
    {
        const LockedArray<Element> elements(array.get());
        Element* target = elements.begin();
        for (const Source& element : source) *target++ = convert(element);
    }
    VARIANT result;
    VariantInit(&result);
    V_VT(&result) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&result) = array.release();
    return result;
}

/// One visit a type of content: fills a VARIANT that is empty so far.
class VariantWriter {
  public:
    VariantWriter(VARIANT& target, ObjectBorder& objects) : target_(target), objects_(objects) {}

    void operator()(std::monostate) const {}
    void operator()(Null) const { V_VT(&target_) = VT_NULL; }
    void operator()(bool content) const {
        V_VT(&target_) = VT_BOOL;
        V_BOOL(&target_) = content ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::uint8_t content) const { set(VT_UI1, V_UI1(&target_), content); }
    void operator()(std::int16_t content) const { set(VT_I2, V_I2(&target_), content); }
    void operator()(std::int32_t content) const { set(VT_I4, V_I4(&target_), LONG{content}); }
    void operator()(std::int64_t content) const { set(VT_I8, V_I8(&target_), content); }
    void operator()(float content) const { set(VT_R4, V_R4(&target_), content); }
    void operator()(double content) const { set(VT_R8, V_R8(&target_), content); }
    void operator()(Currency content) const { set(VT_CY, V_CY(&target_).int64, content.tenThousandths); }
    void operator()(Date content) const { set(VT_DATE, V_DATE(&target_), content.days); }
    void operator()(const std::wstring& content) const {
        set(VT_BSTR, V_BSTR(&target_), Bstr(content).release());
    }
    void operator()(const ObjectPtr& content) const {
        ComPtr<IDispatch> dispatch;
        if (content) dispatch = objects_.toDispatch(content);
        set(VT_DISPATCH, V_DISPATCH(&target_), dispatch.Detach());
    }
    void operator()(const ShortArray& content) const {
        target_ = makeArray<std::int16_t>(VT_I2, content, [](std::int16_t number) { return number; });
    }
    void operator()(const DoubleArray& content) const {
        target_ = makeArray<double>(VT_R8, content, [](double number) { return number; });
    }
    void operator()(const ValueArray& content) const {
        target_ = makeArray<VARIANT>(VT_VARIANT, content, [this](const Value& element) {
            return toVariant(element, objects_).release();
        });
    }

  private:
    template <class Field, class Content>
    void set(VARTYPE type, Field& field, Content content) const {
        V_VT(&target_) = type;
        field = content;
    }

    VARIANT& target_;
    ObjectBorder& objects_;
};

/// Arrays of other element types, element by element.
ValueArray elementsOf(SAFEARRAY* array, VARTYPE type, ObjectBorder& objects) {
    if (SafeArrayGetElemsize(array) > sizeof(VARIANT::llVal)) throwTypeMismatch();
    LONG first = 0;
    LONG last = -1;
    check(SafeArrayGetLBound(array, 1, &first));
    check(SafeArrayGetUBound(array, 1, &last));
    ValueArray result;
    for (LONG i = first; i <= last; ++i) {
        VARIANT element;
        VariantInit(&element);
        check(SafeArrayGetElement(array, &i, &element.llVal));
        V_VT(&element) = type;
        const Variant owned(element);
        result.push_back(fromVariant(owned.get(), objects));
    }
    return result;
}

Value fromArray(SAFEARRAY* array, VARTYPE type, ObjectBorder& objects) {
    if (!array || SafeArrayGetDim(array) != 1) throwTypeMismatch();
    if (type == VT_I2) {
        const LockedArray<std::int16_t> elements(array);
        return ShortArray(elements.begin(), elements.end());
    }
    if (type == VT_R8) {
        const LockedArray<double> elements(array);
        return DoubleArray(elements.begin(), elements.end());
    }
    if (type != VT_VARIANT) return elementsOf(array, type, objects);
    ValueArray result;
    for (const VARIANT& element : LockedArray<VARIANT>(array))
        result.push_back(fromVariant(element, objects));
    return result;
}

Value fromUnknown(IUnknown* unknown, ObjectBorder& objects) {
    if (!unknown) return ObjectPtr();
    ComPtr<IDispatch> dispatch;
    if (FAILED(unknown->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf())))) throwTypeMismatch();
    return objects.fromDispatch(dispatch.Get());
}

Value fromPlain(const VARIANT& variant, ObjectBorder& objects) {
    switch (V_VT(&variant)) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Null{};
        case VT_BOOL:
            return V_BOOL(&variant) != VARIANT_FALSE;
        case VT_UI1:
            return std::uint8_t{V_UI1(&variant)};
        case VT_I2:
            return std::int16_t{V_I2(&variant)};
        case VT_I4:
            return std::int32_t{V_I4(&variant)};
        case VT_I8:
            return std::int64_t{V_I8(&variant)};
        case VT_R4:
            return V_R4(&variant);
        case VT_R8:
            return V_R8(&variant);
        case VT_CY:
            return Currency{V_CY(&variant).int64};
        case VT_DATE:
            return Date{V_DATE(&variant)};
        case VT_BSTR:
            return bstrText(V_BSTR(&variant));
        case VT_DISPATCH:
            return V_DISPATCH(&variant) ? objects.fromDispatch(V_DISPATCH(&variant)) : ObjectPtr();
        case VT_UNKNOWN:
            return fromUnknown(V_UNKNOWN(&variant), objects);
        default:
            throwTypeMismatch();
    }
}

/// The type that stands in for one that Value does not know; VT_EMPTY when there is none.
VARTYPE substituteFor(VARTYPE type) {
    switch (type) {
        case VT_I1:
            return VT_I2;
        case VT_INT:
        case VT_UI2:
            return VT_I4;
        case VT_UINT:
        case VT_UI4:
        case VT_UI8:
            return VT_I8;
        case VT_DECIMAL:
            return VT_R8;
        default:
            return VT_EMPTY;
    }
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

std::wstring bstrText(BSTR text) {
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

Variant toVariant(const Value& value, ObjectBorder& objects) {
    Variant result;
    std::visit(VariantWriter(result.get(), objects), value.storage());
    return result;
}

Value fromVariant(const VARIANT& variant, ObjectBorder& objects) {
    if (V_ISBYREF(&variant)) {
        Variant content;
        // Older headers do not say that the source stays as it is.
        check(VariantCopyInd(content.put(), const_cast<VARIANT*>(&variant)));
        return fromVariant(content.get(), objects);
    }
    const VARTYPE type = V_VT(&variant);
    if (V_ISARRAY(&variant)) {
        return fromArray(V_ARRAY(&variant), static_cast<VARTYPE>(type & ~VT_ARRAY), objects);
    }
    const VARTYPE substitute = substituteFor(type);
    if (substitute == VT_EMPTY) return fromPlain(variant, objects);
    Variant changed;
    check(VariantChangeType(changed.put(), const_cast<VARIANT*>(&variant), 0, substitute));
    return fromPlain(changed.get(), objects);
}

}  // namespace blattwart
