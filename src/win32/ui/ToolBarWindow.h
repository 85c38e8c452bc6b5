#pragma once

#include <windows.h>

#include <commctrl.h>

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

    /// Sets the pictures (index 0 unused) and gives the model the height that they need.
    void setImages(HIMAGELIST images, int dpi);
    /// The user has clicked the button of a command; false when it is none of this bar's.
    bool command(int id);

  private:
    void addButtons();
    void showState(int index) const;

    ToolBar& model_;
    EventGate& gate_;
    int firstCommand_;
};

}  // namespace blattwart
