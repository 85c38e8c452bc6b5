#include "win32/com/ComObject.h"

#include "win32/com/ComArguments.h"
#include "win32/com/ComError.h"

namespace blattwart {

namespace {

/// Elements asked for in one message: more than a drawing has layouts, so that one message brings all.
constexpr ULONG elementsAtOnce = 512;

/// Room for elements that frees what they hold.
class VariantBuffer {
  public:
    explicit VariantBuffer(ULONG size) : content_(size) {}
    VariantBuffer(const VariantBuffer&) = delete;
    VariantBuffer& operator=(const VariantBuffer&) = delete;
    ~VariantBuffer() { clear(); }

    void clear() {
        for (VARIANT& element : content_) VariantClear(&element);
    }
    VARIANT* data() { return content_.data(); }
    std::span<const VARIANT> first(ULONG count) const { return std::span(content_).first(count); }

  private:
    std::vector<VARIANT> content_;
};

bool hasNoEnumerator(HRESULT result) {
    return result == DISP_E_MEMBERNOTFOUND || result == DISP_E_UNKNOWNNAME || result == E_NOINTERFACE ||
           result == E_NOTIMPL;
}

}  // namespace

Value ComObject::get(const Member& member) {
    DISPPARAMS none{};
    const Variant result = invoke(session_->memberId(*dispatch_.Get(), member), DISPATCH_PROPERTYGET, none);
    return fromVariant(result.get(), *session_);
}

void ComObject::put(const Member& member, const Value& value) {
    const DISPID id = session_->memberId(*dispatch_.Get(), member);
    Variant content = toVariant(value, *session_);
    DISPID target = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&content.get(), &target, 1, 1};
    invoke(id, DISPATCH_PROPERTYPUT, parameters);
}

Value ComObject::call(const Member& member, std::span<const Argument> arguments) {
    return invokeWith(session_->memberId(*dispatch_.Get(), member), arguments);
}

std::vector<ObjectPtr> ComObject::enumerate() {
    std::vector<ObjectPtr> elements;
    try {
        const ComPtr<IEnumVARIANT> enumerator = newEnumerator();
        while (nextElements(*enumerator.Get(), elements)) {
        }
    } catch (const RuntimeError& error) {
        if (!hasNoEnumerator(error.number())) throw;
        return itemByItem();
    }
    return elements;
}

Variant ComObject::invoke(DISPID id, WORD flags, DISPPARAMS& parameters) {
    Variant answer;
    ExceptionInfo exception;
    // A property that is put has no answer; some objects refuse to be asked for one.
    const bool answers = flags != DISPATCH_PROPERTYPUT;
    const HRESULT result = session_->call([&] {
        return dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                 answers ? answer.put() : nullptr, exception.put(), nullptr);
    });
    if (FAILED(result)) throw exception.toError(result);
    return answer;
}

Value ComObject::invokeWith(DISPID id, std::span<const Argument> arguments) {
    ComArguments passed(arguments, *session_);
    // Properties with arguments are read like methods are called; the object knows what it has.
    const Variant result = invoke(id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, passed.parameters());
    passed.assignChanged(*session_);
    return fromVariant(result.get(), *session_);
}

ComPtr<IEnumVARIANT> ComObject::newEnumerator() {
    DISPPARAMS none{};
    const Variant result = invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none);
    const VARTYPE type = V_VT(&result.get());
    IUnknown* unknown = type == VT_UNKNOWN || type == VT_DISPATCH ? V_UNKNOWN(&result.get()) : nullptr;
    if (!unknown) throwFailure(E_NOINTERFACE);
    ComPtr<IEnumVARIANT> enumerator;
    throwIfFailed(session_->call([&] {
        return unknown->QueryInterface(IID_IEnumVARIANT,
                                       reinterpret_cast<void**>(enumerator.ReleaseAndGetAddressOf()));
    }));
    return enumerator;
}

/// Appends the next elements; false when these were the last.
bool ComObject::nextElements(IEnumVARIANT& enumerator, std::vector<ObjectPtr>& elements) {
    VariantBuffer buffer(elementsAtOnce);
    ULONG fetched = 0;
    const HRESULT result = session_->call([&] {
        buffer.clear();
        return enumerator.Next(elementsAtOnce, buffer.data(), &fetched);
    });
    throwIfFailed(result);
    for (const VARIANT& variant : buffer.first(fetched)) elements.push_back(element(variant));
    // Fewer than asked for is not the end as long as the enumerator does not say so.
    return result == S_OK && fetched > 0;
}

std::vector<ObjectPtr> ComObject::itemByItem() {
    DISPPARAMS none{};
    Variant count =
        invoke(session_->lookUp(*dispatch_.Get(), L"Count"), DISPATCH_METHOD | DISPATCH_PROPERTYGET, none);
    throwIfFailed(VariantChangeType(&count.get(), &count.get(), 0, VT_I4));
    const DISPID item = session_->lookUp(*dispatch_.Get(), L"Item");
    std::vector<ObjectPtr> elements;
    for (std::int32_t i = 0; i < V_I4(&count.get()); ++i) {
        const Argument index{Value(i)};
        const Value value = invokeWith(item, std::span(&index, 1));
        const auto* object = value.as<ObjectPtr>();
        if (!object) throwFailure(DISP_E_TYPEMISMATCH);
        elements.push_back(*object);
    }
    return elements;
}

ObjectPtr ComObject::element(const VARIANT& variant) {
    const Value value = fromVariant(variant, *session_);
    const auto* object = value.as<ObjectPtr>();
    if (!object || !*object) throwFailure(DISP_E_TYPEMISMATCH);
    return *object;
}

}  // namespace blattwart
