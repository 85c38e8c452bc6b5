#pragma once

namespace blattwart {

class frmPlanEinstellungen;
class frmPlanPdf;
class frmPlanReihenfolge;
class frmPlanUmbenennen;

/// Shows the dialogs that the plan list opens over itself.
class PlanDialogs {
  public:
    virtual ~PlanDialogs() = default;
    /// Return when it has been closed.
    virtual void showModal(frmPlanUmbenennen& form) = 0;
    virtual void showModal(frmPlanReihenfolge& form) = 0;
    virtual void showModal(frmPlanEinstellungen& form) = 0;
    virtual void showModal(frmPlanPdf& form) = 0;
};

}  // namespace blattwart
