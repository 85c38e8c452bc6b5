#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "controls/ToolBar.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/EventGate.h"

namespace blattwart {

/// Shows a toolbar model in the system's toolbar.
class ToolBarWindow : public ControlWindow {
  public:
    /// Command of button n is `firstCommand` + n.
    ToolBarWindow(HWND parent, ToolBar& model, EventGate& gate, int firstCommand);
    ~ToolBarWindow() override;

    /// Sets the pictures (index 0 unused, behind the buttons' the chevron) and gives the model the height
    /// that they need.
    void setImages(HIMAGELIST images, int dpi);
    /// Shows as many buttons as the window has room for; behind them stands a chevron, which opens a menu of
    /// the others.
    void fit();
    /// The user has clicked the button of a command; false when it is none of this bar's.
    bool command(int id);

  private:
    void addButtons();
    void measureButtons();
    void showState(int index) const;
    void clicked(int index);
    void chooseAmongHidden();
    int chevron() const { return static_cast<int>(model_.buttons().size()) + 1; }
    RECT placeOf(int index) const;

    ToolBar& model_;
    EventGate& gate_;
    int firstCommand_;
    std::vector<int> ends_;  // right edge of each button, were all shown; pixels
    int chevronWidth_ = 0;   // pixels
    int fitting_ = 0;        // buttons that have room, counted from the left
};

}  // namespace blattwart
