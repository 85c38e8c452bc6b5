#pragma once

#include <windows.h>

namespace blattwart {

/// A function of user32.dll that older systems lack; null there.
template <class Signature>
Signature* userFunction(const char* name) {
    return reinterpret_cast<Signature*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

}  // namespace blattwart
