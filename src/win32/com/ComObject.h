#pragma once

#include <memory>

#include "platform/Automation.h"
#include "win32/com/ComSession.h"

namespace blattwart {

/// An object of another program, or of a component in this one, reached through IDispatch.
class ComObject : public AutomationObject {
  public:
    ComObject(std::shared_ptr<ComSession> session, ComPtr<IDispatch> dispatch)
        : session_(std::move(session)), dispatch_(std::move(dispatch)) {}
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    ~ComObject() override { session_->letGo(std::move(dispatch_)); }

    using AutomationObject::call;
    Value get(const Member& member) override;
    void put(const Member& member, const Value& value) override;
    Value call(const Member& member, std::span<const Argument> arguments) override;
    /// By the collection's enumerator, which answers many elements at once; without one by Count and Item.
    std::vector<ObjectPtr> enumerate() override;

    const ComPtr<IDispatch>& dispatch() const { return dispatch_; }

  private:
    Variant invoke(DISPID id, WORD flags, DISPPARAMS& parameters);
    Value invokeWith(DISPID id, std::span<const Argument> arguments);
    ComPtr<IEnumVARIANT> newEnumerator();
    bool nextElements(IEnumVARIANT& enumerator, std::vector<ObjectPtr>& elements);
    std::vector<ObjectPtr> itemByItem();
    ObjectPtr element(const VARIANT& variant);

    std::shared_ptr<ComSession> session_;
    ComPtr<IDispatch> dispatch_;
};

}  // namespace blattwart
