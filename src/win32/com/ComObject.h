#pragma once

#include <memory>

#include "platform/Automation.h"
#include "win32/com/ServerLink.h"

namespace blattwart {

/// An object of another program, or of a component in this one, reached through IDispatch.
class ComObject : public AutomationObject {
  public:
    ComObject(std::shared_ptr<ServerLink> link, ComPtr<IDispatch> dispatch)
        : link_(std::move(link)), dispatch_(std::move(dispatch)) {}
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    ~ComObject() override { link_->letGo(std::move(dispatch_)); }

    using AutomationObject::call;
    using AutomationObject::enumerate;
    Value get(const Member& member) override;
    void put(const Member& member, const Value& value) override;
    Value call(const Member& member, std::span<const Argument> arguments) override;
    /// By the collection's enumerator, which answers many elements at once; where that fails by Count and
    /// Item, from 0.
    std::vector<ObjectPtr> enumerate(std::wstring_view className, const GoOn& goOn) override;

    const ComPtr<IDispatch>& dispatch() const { return dispatch_; }

  private:
    struct Handed {
        ULONG count = 0;       ///< of elements in one answer
        bool saidEnd = false;  ///< that fewer were left than wanted
    };

    Variant invoke(const Member& member, WORD flags, DISPPARAMS& parameters);
    Variant invoke(DISPID id, WORD flags, DISPPARAMS& parameters);
    std::vector<ObjectPtr> elementByElement(std::wstring_view className, const GoOn& goOn);
    std::vector<ObjectPtr> itemByItem(std::wstring_view className, const GoOn& goOn);
    ComPtr<IEnumVARIANT> newEnumerator();
    Handed next(IEnumVARIANT& enumerator, ULONG wanted, std::vector<ObjectPtr>& elements);
    std::size_t plausibleCount(std::wstring_view className);
    std::int32_t count(std::wstring_view className);
    ObjectPtr element(const VARIANT& variant);

    std::shared_ptr<ServerLink> link_;
    ComPtr<IDispatch> dispatch_;
};

}  // namespace blattwart
