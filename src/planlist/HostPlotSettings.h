#pragma once

#include <string>
#include <vector>

#include "host/Layout.h"
#include "planlist/PlotSettings.h"

namespace blattwart {

/// Reads all plot settings of a layout; what the host refuses stays empty. 20 round trips, one more with a
/// window. Throws when the host is silent.
PlotSettings readPlotSettings(const host::Layout& layout);

/// A setting that the host has refused, and its text.
struct PlotRefusal {
    PlotProperty property = PlotProperty::device;
    std::wstring reason;
};

/// Puts what a layout with the settings `present` lacks of those `wanted`, property by property; after
/// another device all that depends on it. A refusal does not stop the others, except that of the device.
/// "None" is never put. Throws when the host is silent.
std::vector<PlotRefusal> writePlotSettings(const host::Layout& layout, const PlotSettings& wanted,
                                           const PlotSettings& present);

}  // namespace blattwart
