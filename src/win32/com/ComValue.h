#pragma once

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <string_view>
#include <utility>

#include "platform/Value.h"

namespace blattwart {

using Microsoft::WRL::ComPtr;

/// A VARIANT that frees what it holds.
class Variant {
  public:
    Variant() { VariantInit(&content_); }
    /// Takes over what the VARIANT holds.
    explicit Variant(const VARIANT& content) : content_(content) {}
    Variant(Variant&& other) noexcept : content_(other.release()) {}
    Variant& operator=(Variant&& other) noexcept {
        std::swap(content_, other.content_);
        return *this;
    }
    ~Variant() { VariantClear(&content_); }

    const VARIANT& get() const { return content_; }
    VARIANT& get() { return content_; }
    /// Emptied, for a function that fills it.
    VARIANT* put() {
        VariantClear(&content_);
        return &content_;
    }
    /// Hands the content over to the caller.
    VARIANT release() {
        const VARIANT content = content_;
        VariantInit(&content_);
        return content;
    }

  private:
    VARIANT content_;
};

/// A BSTR that frees itself.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR release() { return std::exchange(text_, nullptr); }

  private:
    BSTR text_ = nullptr;
};

/// The text in a BSTR; none is "".
std::wstring bstrText(BSTR text);

/// How objects in values cross the border. Both directions may throw RuntimeError.
class ObjectBorder {
  public:
    virtual ~ObjectBorder() = default;
    virtual ComPtr<IDispatch> toDispatch(const ObjectPtr& object) = 0;
    virtual ObjectPtr fromDispatch(IDispatch* dispatch) = 0;
};

/// The value as a VARIANT of exactly its type; arrays have the lower bound 0.
Variant toVariant(const Value& value, ObjectBorder& objects);

/// The content of a VARIANT, also by reference. Integer types that Value does not know take the next wider
/// one, decimals become doubles. Throws a type mismatch for what has no counterpart.
Value fromVariant(const VARIANT& variant, ObjectBorder& objects);

}  // namespace blattwart
