#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "planlist/PlanList.h"
#include "planlist/PlotSettings.h"

namespace blattwart {

/// The settings of layouts as they were read, by the numbers of their rows.
using SettingsByRow = std::map<int, PlotSettings>;

/// What a layout is to take over from a source: all of it in the same drawing. A named view belongs to its
/// drawing, so that the plot area stays as it is in another one.
PlotSettings settingsToTake(const PlotSettings& source, bool sameDrawing);
/// Whether a layout of another drawing can take anything over: a plot device cannot be taken away.
bool canCross(const PlotSettings& source);

/// What carrying over would do to one row.
struct TransferPreviewRow {
    int row = 0;
    std::wstring drawing;
    std::wstring layout;
    /// Device, paper, orientation, style, scale and area: "alt → neu" where they change.
    std::array<std::wstring, 6> cells;
    std::wstring note;
    bool changes = false;
};

struct TransferPreview {
    std::vector<TransferPreviewRow> rows;  ///< the source first, then the targets in the order given
    bool unread = false;                   ///< something could not be read, and may be changed
    int changes = 0;
};

/// Rows whose settings were not read are left out.
TransferPreview previewTransfer(PlanList& plan, int sourceRow, std::span<const int> targetRows,
                                const SettingsByRow& settings, const Locale& locale);

}  // namespace blattwart
