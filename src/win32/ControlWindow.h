#pragma once

#include <windows.h>

#include "controls/Control.h"

namespace blattwart {

/// A child window that stands where its control model says.
class ControlWindow {
  public:
    /// Makes the child window of `parent`; throws RuntimeError when Windows refuses.
    ControlWindow(HWND parent, Control& control, const wchar_t* className, DWORD style,
                  DWORD extendedStyle = 0);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow();

    HWND handle() const { return window_; }
    void setFont(HFONT font) const;
    /// Adds what differs from the model, counted from `origin` (twips), to the moves; shows, hides, enables.
    void place(HDWP& moves, int dpi, float topOrigin = 0) const;

  private:
    HWND window_;
    Control& control_;
};

/// Sets the window's text if it is another.
void setWindowText(HWND window, const std::wstring& text);

}  // namespace blattwart
