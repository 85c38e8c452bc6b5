#pragma once

#include <windows.h>

#include <commctrl.h>

#include "controls/ListView.h"
#include "win32/ui/EventGate.h"

namespace blattwart {

/// The columns of a list control: shows those of the model, tells the model what the user does to them.
class ListHeader {
  public:
    ListHeader(HWND list, ListView& model, EventGate& gate);
    ~ListHeader();
    ListHeader(const ListHeader&) = delete;
    ListHeader& operator=(const ListHeader&) = delete;

    void setDpi(int dpi);
    /// Brings texts, widths and order in line with the model. Widths are left for the details view.
    void showColumns();
    void showSorting();

  private:
    static LRESULT CALLBACK listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                          DWORD_PTR header);

    bool hasSameTexts() const;
    void rebuild();
    void showWidths();
    void showOrder();
    int columnCount() const;
    void notify(const NMHDR& header);

    HWND list_;
    ListView& model_;
    EventGate& gate_;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    bool showing_ = false;
};

}  // namespace blattwart
