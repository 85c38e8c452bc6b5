#pragma once

#include <optional>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "platform/Settings.h"

/// What the plan list's window keeps from one run of the program to the next. What cannot be read counts as
/// not stored, what cannot be written is not; neither is told.
namespace blattwart {

/// Gives the list's columns their stored widths, order and sorting.
void restoreColumns(ListView& list, const Settings& settings);
void storeColumns(const ListView& list, Settings& settings);

std::optional<DialogPlacement> storedPlacement(const Settings& settings);
void storePlacement(const DialogPlacement& placement, Settings& settings);

}  // namespace blattwart
