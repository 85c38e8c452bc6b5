#pragma once

#include <windows.h>

namespace blattwart {

/// Dots per inch of the desktop as it was at sign-in; what placements are kept in.
int systemDpi();
/// Dots per inch of the monitor that shows the window; the system's before Windows 10.
int windowDpi(HWND window);

/// Twips (1440 an inch) to whole pixels, rounded; confined to what Windows takes as a coordinate.
int toPixels(float twips, int dpi);
float toTwips(int pixels, int dpi);

}  // namespace blattwart
