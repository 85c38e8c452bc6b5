#pragma once

#include <windows.h>

#include "controls/Control.h"

namespace blattwart {

/// Distances from where a model says, twips.
struct Inset {
    float left = 0;
    float top = 0;
};

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
    /// Adds what differs from the model to the moves; shows, hides, enables. The window stands `inset.top`
    /// (twips) lower and begins `inset.left` further right than its model.
    void place(HDWP& moves, int dpi, Inset inset) const;
    void place(HDWP& moves, int dpi) const { place(moves, dpi, {}); }

  private:
    HWND window_;
    Control& control_;
};

/// A model's text for a control that asks for it: handed over as it is, since the control's own buffer would
/// cut it.
inline wchar_t* uncopied(const std::wstring& text) {
    return const_cast<wchar_t*>(text.c_str());
}

/// Sets the window's text if it is another.
void setWindowText(HWND window, const std::wstring& text);

}  // namespace blattwart
