#pragma once

#include "win32/base/Handles.h"

namespace blattwart {

/// The pictures of the main window's controls for one DPI. Picture i of a model is index i of its list; index
/// 0 is an empty picture.
struct Pictures {
    ImageList tree;
    ImageList toolBar;
    ImageList listSmall;
    ImageList listLarge;
};

/// From the program's resources; a list is empty where they are missing.
Pictures loadPictures(int dpi);

/// The program's icon in the size of one of the system's metrics (SM_CXICON, SM_CXSMICON). It is shared, so
/// nobody destroys it; null where it is missing.
HICON programIcon(int sizeMetric);

}  // namespace blattwart
