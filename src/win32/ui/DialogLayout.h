#pragma once

#include <windows.h>

#include <vector>

namespace blattwart {

/// The edges of its dialog that a control keeps its distance to. "Wide" is left and right: it grows.
enum class Anchors { topLeft, topRight, bottomLeft, bottomRight, topWide, bottomWide, all };

/// Where the controls of a dialog stand when it has another size or resolution than it was made with.
class DialogLayout {
  public:
    /// Of a dialog whose controls stand as they were made, for a client area of the size `made`; the dialog
    /// itself may have been made smaller, as its screen is. It gets no smaller than `smallest`. Both are in
    /// dialog units.
    DialogLayout(HWND dialog, SIZE made, SIZE smallest);

    void anchor(HWND control, Anchors anchors);
    /// Moves the controls to their places for the dialog's present size.
    void place() const;
    /// Dots per inch of the dialog's controls from now on.
    void setDpi(int dpi) { dpi_ = dpi; }
    int dpi() const { return dpi_; }
    void limit(MINMAXINFO& info) const;
    /// Makes a dialog smaller that does not fit on its screen.
    void fitScreen() const;

  private:
    struct Placed {
        HWND control;
        RECT place;
        Anchors anchors;
    };
    LONG scaled(LONG pixels) const { return MulDiv(static_cast<int>(pixels), dpi_, madeWith_); }

    HWND dialog_;
    SIZE made_;  // pixels, as the next
    SIZE smallest_;
    int madeWith_;
    int dpi_;
    std::vector<Placed> controls_;
};

}  // namespace blattwart
