#pragma once

#include "demo/host/Members.h"

namespace demo {

/// The collection of open documents, in the order in which they were opened.
class DocumentsObject final : public HostClass<DocumentsObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<DocumentsObject>> members();
    std::vector<blattwart::ObjectPtr> allElements() override;

  private:
    blattwart::Value count();
    blattwart::Value item(Arguments arguments);
    blattwart::Value add(Arguments arguments);
    blattwart::Value open(Arguments arguments);
    blattwart::Value close(Arguments);
    blattwart::ObjectPtr objectOf(const DocumentPtr& document) const;
};

}  // namespace demo
