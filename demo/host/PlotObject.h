#pragma once

#include "demo/host/Members.h"

namespace demo {

/// Plots one document, which must be the active one.
class PlotObject final : public HostClass<PlotObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<PlotObject>> members();

  private:
    blattwart::Value quietErrorMode();
    void putQuietErrorMode(const blattwart::Value& value);
    blattwart::Value plotToFile(Arguments arguments);
};

}  // namespace demo
