#include "win32/base/LibrarySearch.h"

#include <windows.h>

namespace blattwart {

void hardenLibrarySearch() {
    using SetDirectories = BOOL WINAPI(DWORD);
    constexpr DWORD searchSystem32 = 0x00000800;
    SetDllDirectoryW(L"");
    const auto setDirectories = reinterpret_cast<SetDirectories*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories"));
    if (setDirectories) setDirectories(searchSystem32);
}

}  // namespace blattwart
