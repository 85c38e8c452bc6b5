#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Locale.h"

namespace blattwart {

/// What the user is told apart about a layout's plotting.
enum class PlotProperty { device, paper, units, orientation, area, scale, offset, style, options };

/// Values of PlotSettings::area that take more than themselves.
namespace plotArea {
inline constexpr std::int32_t view = 3;
inline constexpr std::int32_t window = 4;
}  // namespace plotArea

/// How a layout is plotted. What could not be read is empty.
struct PlotSettings {
    std::optional<std::wstring> device;
    std::optional<std::wstring> paper;       ///< canonical name
    std::optional<std::int32_t> paperUnits;  ///< 0 inches, 1 millimetres, 2 pixels
    std::optional<std::int32_t> rotation;    ///< quarter turns, 0 to 3
    std::optional<std::int32_t> area;        ///< 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout
    std::optional<std::wstring> view;
    std::optional<std::array<double, 4>> window;  ///< both corners; read for area 4 only
    std::optional<bool> usesStandardScale;
    std::optional<std::int32_t> standardScale;       ///< the host's code; 0 fits the paper
    std::optional<std::pair<double, double>> ratio;  ///< paper to drawing, as it is in effect
    std::optional<bool> centred;
    std::optional<std::pair<double, double>> offset;  ///< millimetres
    std::optional<std::wstring> styleSheet;
    /// With styles, with lineweights, lineweights scaled, hidden lines, viewport borders, viewports first,
    /// styles shown.
    std::array<std::optional<bool>, 7> options;

    bool hasDevice() const { return device && !device->empty() && *device != L"None"; }
    bool fitsPaper() const { return usesStandardScale == true && standardScale == 0; }
};

/// What a layout with the settings `present` still lacks of those `wanted`. What is not known of `wanted` is
/// wanted of nobody; what is not known of `present` counts as different.
std::vector<PlotProperty> differences(const PlotSettings& wanted, const PlotSettings& present);

/// What could not be read.
std::vector<PlotProperty> unread(const PlotSettings& settings);

/// "Plotgerät", "Papierformat", ...
std::wstring plotPropertyName(PlotProperty property);
/// The setting as a cell shows it; "" where it is not known, and for what no column shows. Scales are "1:50",
/// "2:1", "1:33,33" or "angepasst".
std::wstring plotPropertyText(const PlotSettings& settings, PlotProperty property, const Locale& locale);
/// "alt → neu" where both differ, else the one text.
std::wstring changeText(const std::wstring& before, const std::wstring& after);

}  // namespace blattwart
