#pragma once

#include <string>
#include <vector>

#include "autocad/basAutoCAD.h"
#include "planlist/PlanList.h"

namespace blattwart {

/// What plotting changes in the host for a while, and what of it is still to be put back: which drawing is
/// active, which layout is current in each, whether plotting is quiet, and what basAutoCAD::borrowed holds.
/// Lives as long as the program: what a busy host refuses is tried again later. What the user has changed
/// since stays as it is; on a host that is gone nothing is put back but what it keeps for its next session.
class PlanRestore {
  public:
    explicit PlanRestore(basAutoCAD& autoCAD) : autoCAD_(autoCAD) {}

    /// Remembers the active drawing, and has the host plot in the foreground and without page setup dialogs.
    /// Throws when the host refuses.
    void begin();
    /// Makes a drawing the active one, quiet in plotting, and remembers how it was. Throws when the host
    /// refuses.
    void enter(const PlanDrawing& drawing);
    /// Makes a layout of the entered drawing the current one.
    void show(const PlanRow& row);
    const host::Document& document() const { return places_.back().document; }
    const host::Plot& plot() const { return places_.back().plot; }
    /// Puts the entered drawing back.
    void leave();
    /// Puts everything back that the host lets.
    void finish();
    /// Another host is attached: what the last one has of drawings and layouts stays as it is.
    void dropHost();
    bool outstanding() const;
    /// Whether the last try found no host any more.
    bool hostGone() const { return hostGone_; }
    /// What is still to be put back, for the user.
    std::wstring text() const;

  private:
    struct Place {
        host::Document document;
        std::wstring fullName;
        std::wstring shownName;
        host::Layout before;
        std::vector<std::wstring> shown;  // layouts that were made the current one since
        host::Plot plot;
        bool madeQuiet = false;
    };

    bool putBack(const Place& place);
    bool putActiveBack();
    /// Whether the statement went through, or there is nothing left that it could do.
    template <class Statement>
    bool settled(Statement&& statement);

    basAutoCAD& autoCAD_;
    std::vector<Place> places_;       // the entered one last
    bool entered_ = false;            // the last one is the active drawing
    host::Document active_;           // before; empty when it is active
    std::vector<std::wstring> ours_;  // full names of drawings that were made the active one since
    bool hostGone_ = false;
};

}  // namespace blattwart
