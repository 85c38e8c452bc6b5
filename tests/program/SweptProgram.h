#pragma once

#include <array>
#include <map>

#include "Operations.h"

namespace blattwart::test {

/// The program on the sample drawings with a user who does whatever there is to do, to the end, in every
/// dialog that opens; he gives up where he is told that something failed. What he may change is told as text.
class SweptProgram : public Operations {
  protected:
    SweptProgram();

    /// Those of the main window, coming back to it, starting it, and what else is done in the plan list.
    virtual std::vector<Action> allActions();

    /// The user stands at the place, as in a program just started.
    void prepare(const Place& place);
    /// He does it; no error may reach the system.
    void perform(const Action& action);

    /// Drawings with their layouts; what is current; what is unsaved; files; typed texts; an open dialog.
    using HostParts = std::array<std::wstring, 6>;
    /// What an operation may change in the host and in the library.
    HostParts hostParts();
    /// What an operation may change in the settings.
    std::map<std::wstring, std::wstring> stored();
    /// The picture of a program just started on the same world, with the same node and entries selected.
    std::wstring freshPicture();
    /// How many questions he was asked, but whether to start AutoCAD or to give the rest of an undoing up.
    std::size_t questions();

    std::map<std::wstring, std::wstring> storedBefore;  ///< when the place was prepared

  private:
    void useDialogs();
    void usePlanListDialogs();
    /// In the plan list, once everything is read, he does something else than usual, and closes it.
    Action inPlanList(std::wstring name, std::function<void(frmPlanliste&)> user);
    void renameSaveAndExport(frmPlanliste& list);
    void swapAndUndo(frmPlanliste& list);
    void orderAndPlot(frmPlanliste& list);
    void selectPlan(frmPlanliste& list);
    bool isAsPrepared(const Place& place);
    void restoreFiles();
    void forgetPlots();
    void goTo(const Place& place);
    std::wstring wholeState();

    std::wstring preparedNode_;
    std::wstring preparedState_;
};

}  // namespace blattwart::test
