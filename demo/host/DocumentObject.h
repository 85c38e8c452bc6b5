#pragma once

#include "demo/host/Members.h"

namespace demo {

/// One open document.
class DocumentObject final : public HostClass<DocumentObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<DocumentObject>> members();
    const DocumentPtr& openDocument() const { return documentPtr(); }

  private:
    static std::vector<MemberSlot<DocumentObject>> fileMembers();

    blattwart::Value name();
    blattwart::Value path();
    blattwart::Value fullName();
    blattwart::Value active();
    blattwart::Value saved();
    blattwart::Value readOnly();
    blattwart::Value activate(Arguments);
    blattwart::Value save(Arguments);
    blattwart::Value saveAs(Arguments arguments);
    blattwart::Value close(Arguments arguments);

    blattwart::Value sendCommand(Arguments arguments);
    blattwart::Value setVariable(Arguments arguments);
    blattwart::Value getVariable(Arguments arguments);

    blattwart::Value activeSpace();
    void putActiveSpace(const blattwart::Value& value);
    blattwart::Value activeLayout();
    void putActiveLayout(const blattwart::Value& value);
    blattwart::Value layouts();
    blattwart::Value plot();
    blattwart::Value registeredApplications();
    blattwart::Value handleToObject(Arguments arguments);
    blattwart::Value objectIdToObject(Arguments arguments);
    blattwart::Value objectIdToObject32(Arguments arguments);
    blattwart::Value objectOf(Handle handle) const;
};

}  // namespace demo
