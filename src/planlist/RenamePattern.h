#pragma once

#include <span>
#include <string>
#include <vector>

#include "planlist/PlanList.h"

namespace blattwart {

/// How new names are made, all as the user typed it.
struct RenamePattern {
    /// Text with placeholders: <Name> is the old name after searching and replacing, <Nr> the number,
    /// <Zeichnung> the drawing's file name without extension.
    std::wstring text = L"<Name>";
    std::wstring find;  ///< case ignored, every occurrence; "" replaces nothing
    std::wstring replacement;
    std::wstring first = L"1";   ///< 0 to 999999
    std::wstring step = L"1";    ///< 1 to 1000
    std::wstring digits = L"2";  ///< 1 to 6
    bool restartInEachDrawing = true;
};

/// What renaming would do to one row.
struct RenamePreviewRow {
    int number = 0;  ///< of the row in the PlanList
    std::wstring drawing;
    std::wstring oldName;
    std::wstring newName;
    std::wstring note;  ///< the conflict, or a hint; "" for neither
    bool conflict = false;
    bool changes() const { return oldName != newName; }
};

struct RenamePreview {
    std::vector<RenamePreviewRow> rows;  ///< in the order given
    int changes = 0;
    int conflicts = 0;
    /// There is something to rename and nothing speaks against it.
    bool possible() const { return changes > 0 && conflicts == 0; }
    /// "12 werden umbenannt, 2 Konflikte".
    std::wstring statusText() const;
};

/// The names that a pattern gives to these rows, counted in this order. Rows that are not there are left out.
RenamePreview previewPattern(PlanList& plan, std::span<const int> rowNumbers, const RenamePattern& pattern,
                             const Locale& locale);
/// The same for one row and a name typed for it.
RenamePreview previewName(PlanList& plan, int rowNumber, std::wstring_view newName, const Locale& locale);

}  // namespace blattwart
