#include "win32/com/ComObject.h"

#include <algorithm>

#include "platform/Conversions.h"
#include "win32/com/ComArguments.h"
#include "win32/com/ComError.h"

namespace blattwart {

namespace {

using Enumerating = ServerLink::Enumerating;

/// Elements asked for in one message: more than a drawing has layouts, so that one message brings all.
constexpr ULONG elementsAtOnce = 512;
/// So many are believed without comparing them with the collection's count.
constexpr std::size_t plausibleElements = 10000;

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
    const Variant result = invoke(member, DISPATCH_PROPERTYGET, none);
    return fromVariant(result.get(), *link_);
}

void ComObject::put(const Member& member, const Value& value) {
    Variant content = toVariant(value, *link_);
    DISPID target = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&content.get(), &target, 1, 1};
    invoke(member, DISPATCH_PROPERTYPUT, parameters);
}

Value ComObject::call(const Member& member, std::span<const Argument> arguments) {
    ComArguments passed(arguments, *link_);
    // Properties with arguments are read like methods are called; the object knows what it has.
    const Variant result = invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, passed.parameters());
    passed.assignChanged(*link_);
    return fromVariant(result.get(), *link_);
}

Variant ComObject::invoke(const Member& member, WORD flags, DISPPARAMS& parameters) {
    const DISPID id = link_->memberId(*dispatch_.Get(), member);
    try {
        return invoke(id, flags, parameters);
    } catch (const RuntimeError& error) {
        if (error.number() != hresult::memberNotFound) throw;
        // An object may know the member by another id than its class.
        const DISPID own = link_->lookUp(*dispatch_.Get(), member.name);
        if (own == id) throw;
        return invoke(own, flags, parameters);
    }
}

Variant ComObject::invoke(DISPID id, WORD flags, DISPPARAMS& parameters) {
    Variant answer;
    ExceptionInfo exception;
    // A property that is put has no answer; some objects refuse to be asked for one.
    const bool answers = flags != DISPATCH_PROPERTYPUT;
    const HRESULT result = link_->call([&] {
        return dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                 answers ? answer.put() : nullptr, exception.put(), nullptr);
    });
    if (FAILED(result)) throw exception.toError(result);
    return answer;
}

std::vector<ObjectPtr> ComObject::enumerate(std::wstring_view className, const GoOn& goOn) {
    bool offered = link_->enumerating(className) != Enumerating::byItem;
    if (offered) {
        try {
            return elementByElement(className, goOn);
        } catch (const RuntimeError& error) {
            if (isSilence(error)) throw;
            offered = !hasNoEnumerator(error.number());
        }
    }
    std::vector<ObjectPtr> elements = itemByItem(className, goOn);
    if (!offered) link_->learn(className, Enumerating::byItem);
    return elements;
}

std::vector<ObjectPtr> ComObject::elementByElement(std::wstring_view className, const GoOn& goOn) {
    const ComPtr<IEnumVARIANT> enumerator = newEnumerator();
    std::vector<ObjectPtr> elements;
    std::size_t most = plausibleElements;
    bool more = true;
    // Fewer than asked for is not the end as long as the enumerator does not say so. One that gives a single
    // element does not mean by saying so what it should, unless it is known to give several.
    for (bool alone = false; more;) {
        const bool single = alone || link_->enumerating(className) == Enumerating::single;
        const Handed handed = next(*enumerator.Get(), single ? 1 : elementsAtOnce, elements);
        if (handed.count > 1) link_->learn(className, Enumerating::several);
        if (alone && handed.count > 0) link_->learn(className, Enumerating::single);
        const bool ends = handed.saidEnd && link_->enumerating(className) == Enumerating::several;
        alone = handed.saidEnd;
        if (elements.size() > most) most = plausibleCount(className);
        if (elements.size() > most) throwFailure(E_UNEXPECTED);
        more = handed.count > 0 && !ends && goOn();
    }
    return elements;
}

ComPtr<IEnumVARIANT> ComObject::newEnumerator() {
    DISPPARAMS none{};
    const Variant result = invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none);
    const VARTYPE type = V_VT(&result.get());
    IUnknown* unknown = type == VT_UNKNOWN || type == VT_DISPATCH ? V_UNKNOWN(&result.get()) : nullptr;
    if (!unknown) throwFailure(E_NOINTERFACE);
    ComPtr<IEnumVARIANT> enumerator;
    throwIfFailed(link_->call([&] {
        return unknown->QueryInterface(IID_IEnumVARIANT,
                                       reinterpret_cast<void**>(enumerator.ReleaseAndGetAddressOf()));
    }));
    return enumerator;
}

/// Appends the next elements.
ComObject::Handed ComObject::next(IEnumVARIANT& enumerator, ULONG wanted, std::vector<ObjectPtr>& elements) {
    VariantBuffer buffer(wanted);
    ULONG fetched = 0;
    const HRESULT result = link_->call([&] {
        buffer.clear();
        fetched = 0;
        return enumerator.Next(wanted, buffer.data(), &fetched);
    });
    throwIfFailed(result);
    Handed handed{0, result != S_OK};
    for (const VARIANT& variant : buffer.first(std::min(fetched, wanted))) {
        // On the way from another process "all is well" fills up what was handed out to what was wanted.
        if (V_VT(&variant) == VT_EMPTY) break;
        elements.push_back(element(variant));
        ++handed.count;
    }
    return handed;
}

/// An enumerator that hands out more begins anew without end.
std::size_t ComObject::plausibleCount(std::wstring_view className) {
    return 2 * static_cast<std::size_t>(count(className)) + 16;
}

std::int32_t ComObject::count(std::wstring_view className) {
    DISPPARAMS none{};
    Variant count = invoke(Member{className, L"Count"}, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none);
    throwIfFailed(VariantChangeType(&count.get(), &count.get(), 0, VT_I4));
    return V_I4(&count.get());
}

std::vector<ObjectPtr> ComObject::itemByItem(std::wstring_view className, const GoOn& goOn) {
    const std::int32_t all = count(className);
    std::vector<ObjectPtr> elements;
    for (std::int32_t i = 0; i < all && goOn(); ++i) {
        const Argument index{Value(i)};
        elements.push_back(toObject(call({className, L"Item"}, std::span(&index, 1))));
    }
    return elements;
}

ObjectPtr ComObject::element(const VARIANT& variant) {
    return toObject(fromVariant(variant, *link_));
}

}  // namespace blattwart
