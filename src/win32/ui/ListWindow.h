#pragma once

#include <windows.h>

#include <commctrl.h>

#include "controls/ListView.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/LabelEdit.h"
#include "win32/ui/ListHeader.h"

namespace blattwart {

/// Shows a list model in the system's list control, which asks the model for every row that it draws.
class ListWindow final : public ControlWindow, private ListViewListener {
  public:
    ListWindow(HWND parent, ListView& list, EventGate& gate);
    ~ListWindow() override;

    /// Index 0 is the picture of items without an icon. To be set before the fonts, which fit the columns of
    /// the list view.
    void setImages(HIMAGELIST large, HIMAGELIST small) const;
    /// Bold rows are drawn in `bold`, which must outlive its use here.
    void setFonts(HFONT normal, HFONT bold, int dpi);
    /// Scrolls to where the list was when its last window went; once this one has its size.
    void showTopRow() const;
    LRESULT notify(NMHDR& header);
    /// Where the menu asked for by keyboard belongs: at the selected row.
    POINT contextMenuByKey() const;
    /// What the rows leave free below them; pixels within the window.
    RECT roomBelowRows() const;
    bool editing() const { return labelEdit_.active(); }

    /// The user drags the item with this key; without it nothing is dragged.
    std::function<void(const std::wstring& key)> dragged;

  private:
    void rowsChanged() override;
    void rowChanged(int row) override;
    void selectionChanged() override;
    void columnsChanged() override;
    void sortChanged() override { header_.showSorting(); }
    void modeChanged() override;
    void rowWanted(int row) override;
    void labelEditStarted(const ListItem& item) override;
    void labelEditCancelled() override;

    void showSelection();
    void fitListColumns();
    int focusedRow() const;

    void fill(LVITEMW& wanted) const;
    LRESULT draw(NMLVCUSTOMDRAW& draw) const;
    LRESULT find(const NMLVFINDITEMW& wanted) const;
    void itemChanged(const NMLISTVIEW& change);
    void postSelection();
    void reportSelection();
    void columnClicked(int column);
    void doubleClicked(const NMITEMACTIVATE& click);
    void beginDrag(int row);

    ListView& list_;
    EventGate& gate_;
    LabelEdit labelEdit_;
    ListHeader header_;
    HFONT boldFont_ = nullptr;
    bool selectionPosted_ = false;
    bool showing_ = false;
};

}  // namespace blattwart
