#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/ListView.h"
#include "data/NodeKey.h"
#include "platform/Platform.h"

namespace blattwart {

/// What the list shows; any other value means that no column set is active.
enum class ListKind : std::int16_t { none = 0, drawings, layouts, layoutDetails, templates, templateDetails };

/// The list's kind for a node of this kind.
ListKind listKindOf(NodeKind nodeKind);

/// The list's column sets, one for each kind: headers, widths and display order, kept in the user's settings.
class ListColumns {
  public:
    ListColumns(ListView& list, Label& title, Platform& platform);

    /// The kind whose columns the list has.
    ListKind ListMode = ListKind::none;

    /// Throws, with a text for the user, when a stored width is no number or too large.
    void LoadColumnWidths();
    void SaveColumnWidths();
    /// Keeps the widths of the visible columns; does nothing while no column set is active.
    void StoreColumnWidths();
    /// Replaces the headers by those of the kind, sorted as the user has left them.
    void setHeaders(ListKind kind);

    void RestoreColumnOrder(const std::wstring& prefix);
    void SaveColumnOrder(const std::wstring& prefix);
    /// Keeps widths, order and sorting of the column set that the list is about to leave.
    void leave();
    /// Display positions from 0, separated by commas, in column order.
    std::wstring GetColumnOrder() const;
    /// Columns up to the first faulty element get their positions; then throws for that element.
    void SetColumnOrder(const std::wstring& text);

  private:
    struct ColumnSet;
    static const std::array<ColumnSet, 5>& columnSets();
    std::vector<std::int32_t>& widths(ListKind kind) { return widths_[static_cast<std::size_t>(kind) - 1]; }
    void placeColumns(const std::vector<int>& positions);

    ListView& list_;
    Label& title_;
    Platform& platform_;
    std::array<std::vector<std::int32_t>, 5> widths_;
    // By which column each set was sorted last, and how, in this run.
    struct Sorting {
        int key = -1;
        SortOrder order = SortOrder::ascending;
    };
    std::array<Sorting, 5> sorting_;
};

}  // namespace blattwart
