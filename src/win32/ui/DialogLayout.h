#pragma once

#include <windows.h>

#include <vector>

namespace blattwart {

/// The edges of its dialog that a control keeps its distance to. "Wide" is left and right: it grows.
enum class Anchors { topLeft, topRight, bottomLeft, bottomRight, topWide, bottomWide, all };

/// Where the controls of a dialog stand when it has another size or resolution than it was made with.
class DialogLayout {
  public:
    /// Of a dialog whose controls stand as they were made. It gets no smaller than `smallest`, dialog units
    /// of its client area; with zeros no smaller than it is.
    DialogLayout(HWND dialog, SIZE smallest);

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
    SIZE smallest_;
    SIZE made_{};  // pixels of the client area, as it was made
    int madeWith_;
    int dpi_;
    std::vector<Placed> controls_;
};

}  // namespace blattwart
