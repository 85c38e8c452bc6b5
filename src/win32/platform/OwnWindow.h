#pragma once

#include <windows.h>

namespace blattwart {

/// The window of ours that the user works in, also while another program is in front: what message boxes and
/// dialogs belong to, so that they always block what lies under them. Null before the main window exists.
HWND ownWindow();

}  // namespace blattwart
