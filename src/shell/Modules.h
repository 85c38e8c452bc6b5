#pragma once

#include <cstdint>

#include "autocad/basAutoCAD.h"
#include "autocad/basTarvix.h"
#include "data/basRegistry.h"
#include "dialogs/basHTMLHelp.h"
#include "shell/FormPresenter.h"
#include "views/basDateien.h"
#include "views/basViewControls.h"
#include "views/LayoutNames.h"
#include "views/TemplateCreation.h"

namespace blattwart {

class frmPlanliste;

/// What the main window's handlers work with. basMain owns it all.
struct Modules {
    basRegistry& registry;
    basAllgemein& general;
    basAutoCAD& autoCAD;
    basTarvix& tarvix;
    LayoutMembers& members;
    basDatenbank& database;
    NavigatorRecords& records;
    basViewControls& views;
    basDateien& files;
    TemplateCreation& templates;
    LayoutNames& layouts;
    basHTMLHelp& help;
    frmPlanliste& planList;
    FormPresenter& presenter;
    /// 1 while the main window was the foreground window at the last look, else 0.
    std::int16_t& gWasForeground;
    NavigatorEvents& events;
};

}  // namespace blattwart
