#pragma once

#include "planlist/PlanDialogs.h"

namespace blattwart {

class FormWindow;
class frmErstellen;
class frmInfo;
class frmKopieren;
class frmMain;
class frmPlanliste;
class frmUmbenennen;

/// Makes the windows that show the program's forms.
class FormPresenter : public PlanDialogs {
  public:
    using PlanDialogs::showModal;
    /// Makes the (still hidden) window of the main form. The window lives until the form is unloaded.
    virtual FormWindow& createMainWindow(frmMain& form) = 0;
    /// Show a loaded form over the main window and return when it has been closed.
    virtual void showModal(frmKopieren& form) = 0;
    virtual void showModal(frmUmbenennen& form) = 0;
    virtual void showModal(frmErstellen& form) = 0;
    virtual void showModal(frmInfo& form) = 0;
    virtual void showModal(frmPlanliste& form) = 0;
    /// Closes every form that is shown modally, the last one first.
    virtual void closeDialogs() = 0;
};

}  // namespace blattwart
