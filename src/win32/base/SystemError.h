#pragma once

#include <windows.h>

#include <string>

namespace blattwart {

/// The system's text for an error code, or the code in words when the system has none.
std::wstring systemText(HRESULT code);

/// Throws the RuntimeError for a failed Windows function: missing files and folders under their own numbers,
/// everything else as HRESULT; the description is the system's text.
[[noreturn]] void throwSystemError(DWORD error = GetLastError());

}  // namespace blattwart
