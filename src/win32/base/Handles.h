#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <type_traits>

namespace blattwart {

/// Owners of what Windows hands out; each closes its handle.
struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
struct SearchCloser {
    void operator()(HANDLE search) const { FindClose(search); }
};
struct LocalDeleter {
    void operator()(void* memory) const { LocalFree(memory); }
};
struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct MenuDestroyer {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
struct ImageListDestroyer {
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};

using Handle = std::unique_ptr<void, HandleCloser>;
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;
using Search = std::unique_ptr<void, SearchCloser>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDestroyer>;
using ImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDestroyer>;

}  // namespace blattwart
