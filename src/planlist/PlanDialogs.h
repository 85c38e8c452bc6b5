#pragma once

namespace blattwart {

class frmPlanUmbenennen;

/// Shows the dialogs that the plan list opens over itself.
class PlanDialogs {
  public:
    virtual ~PlanDialogs() = default;
    /// Returns when it has been closed.
    virtual void showModal(frmPlanUmbenennen& form) = 0;
};

}  // namespace blattwart
