#pragma once

#include <string>
#include <vector>

#include "planlist/PlanReader.h"
#include "planlist/PlanWriteResult.h"

/// Commands of the plan list that change no layout.
namespace blattwart {

/// Shows a layout in AutoCAD, which comes to the front; the drawing's state is read again. Returns what the
/// user is to be told, "" when the layout is shown.
std::wstring showLayout(basAutoCAD& autoCAD, PlanReader& reader, const PlanList::Place& place);

struct PlanSaveResult {
    PlanWriteResult check;  ///< nothing was saved unless it is done
    int saved = 0;
    std::vector<std::wstring> notSaved;  ///< a line for each drawing that has changes yet

    std::wstring message() const;
    std::wstring statusText() const;
};
/// Saves those of these drawings (by their identities) that are changed under their names; asks the host
/// which.
PlanSaveResult saveDrawings(PlanList& plan, PlanReader& reader, const std::vector<std::wstring>& drawings);

}  // namespace blattwart
