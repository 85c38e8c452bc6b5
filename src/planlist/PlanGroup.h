#pragma once

#include "planlist/PlanWriteResult.h"

namespace blattwart {

/// A group of changes to the host's layouts, which is checked first. It goes in steps that each are to run in
/// an event of their own: after a host that stayed busy, the next step then may ask it again.
class PlanGroup {
  public:
    PlanGroup() = default;
    PlanGroup(const PlanGroup&) = delete;
    PlanGroup& operator=(const PlanGroup&) = delete;
    virtual ~PlanGroup() = default;

    /// Begins to take back the last operation, one of the kind that this group does. Each drawing is checked
    /// for itself; where one does not fit, or refuses, the reason is noted, its part of the operation stays,
    /// and the others go on.
    virtual void beginUndo() = 0;
    /// Does the next step. Returns whether more is to come.
    virtual bool step() = 0;
    /// Ends the group before its next unit; what is to be put back still is.
    virtual void stop() = 0;
    /// Once step() has returned false.
    const PlanWriteResult& result() const { return result_; }

  protected:
    PlanWriteResult result_;
};

}  // namespace blattwart
