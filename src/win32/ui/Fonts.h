#pragma once

#include "win32/base/Handles.h"

namespace blattwart {

/// The user's font for messages and controls at this DPI.
Font messageFont(int dpi);
/// The same font in bold.
Font boldFont(HFONT font);
/// Height of a line of text, pixels.
int lineHeight(HFONT font);

}  // namespace blattwart
