#pragma once

#include <windows.h>

namespace blattwart {

/// Throws the RuntimeError for a failed Windows function: missing files and folders under their own numbers,
/// everything else as HRESULT; the description is the system's text.
[[noreturn]] void throwSystemError(DWORD error = GetLastError());

}  // namespace blattwart
