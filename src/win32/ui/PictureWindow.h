#pragma once

#include "controls/PictureBox.h"
#include "win32/base/Handles.h"
#include "win32/ui/Guard.h"

namespace blattwart {

/// Shows a picture model within a list control, whose mouse it leaves alone.
class PictureWindow {
  public:
    /// Makes the still hidden window; throws RuntimeError when Windows refuses.
    PictureWindow(HWND list, const PictureBox& model, Guard& guard);
    PictureWindow(const PictureWindow&) = delete;
    PictureWindow& operator=(const PictureWindow&) = delete;
    ~PictureWindow();

    /// Brings picture and name in line with the model, and the picture into the room (pixels within the
    /// list): at its top left, as large as its proportions allow. It is hidden where there is no room for it.
    void show(const RECT& room, int dpi);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR picture);
    void takePicture();
    void decodeShown();
    SIZE sizeIn(const RECT& room) const;
    void place(const RECT& wanted) const;
    void paint();

    HWND window_;
    const PictureBox& model_;
    Guard& guard_;
    PictureBox::Picture shown_;
    Bitmap bitmap_;
    COLORREF ground_ = 0;  // of the bitmap
};

}  // namespace blattwart
