#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "controls/Control.h"
#include "win32/ui/ControlWindow.h"

namespace blattwart {

/// Shows a status bar model; behind its panels stands one of the window's own, for the host that is busy.
class StatusBarWindow : public ControlWindow {
  public:
    StatusBarWindow(HWND parent, StatusBar& model);

    /// Sets the font and gives the model the height that it needs.
    void setFont(HFONT font, int dpi);
    /// Brings texts and the panels' widths in line with the model and the window's width.
    void show() const;
    /// The text of the window's own panel; "" hides the panel.
    void showBusy(const std::wstring& text);

  private:
    std::vector<int> parts() const;
    int widthOf(const std::wstring& text) const;
    void showText(int part, const std::wstring& text) const;

    StatusBar& model_;
    std::wstring busy_;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
};

}  // namespace blattwart
