#pragma once

#include "demo/host/Members.h"

namespace demo {

/// One application whose extended data a drawing may hold.
class RegisteredApplicationObject final : public HostClass<RegisteredApplicationObject> {
  public:
    RegisteredApplicationObject(HostPtr host, DocumentPtr document, std::wstring name)
        : HostClass(std::move(host), std::move(document)), name_(std::move(name)) {}
    static std::vector<MemberSlot<RegisteredApplicationObject>> members();

  private:
    blattwart::Value name();

    std::wstring name_;
};

class RegisteredApplicationsObject final : public HostClass<RegisteredApplicationsObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<RegisteredApplicationsObject>> members();
    std::vector<blattwart::ObjectPtr> allElements() override;

  private:
    blattwart::Value count();
    blattwart::Value item(Arguments arguments);
    /// Gives the existing entry when the name is registered already.
    blattwart::Value add(Arguments arguments);
    blattwart::ObjectPtr application(const std::wstring& name) const;
};

}  // namespace demo
