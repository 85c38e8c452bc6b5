#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "win32/ui/Guard.h"

namespace blattwart {

/// What a window does with what is dragged over it. The data has been copied when it is told.
struct DropHandlers {
    /// Told while the mouse moves; whether something can be dropped at this place of the screen.
    std::function<bool(POINT screen)> over;
    /// The drag has left or was broken off.
    std::function<void()> left;
    std::function<void(const std::vector<std::wstring>& files)> files;
    std::function<void(const std::wstring& text)> text;
};

/// Lets files and texts be dropped on a window as long as it lives. The thread must have called
/// OleInitialize.
class DropRegistration {
  public:
    DropRegistration(HWND window, Guard& guard, DropHandlers handlers);
    DropRegistration(const DropRegistration&) = delete;
    DropRegistration& operator=(const DropRegistration&) = delete;
    ~DropRegistration();

  private:
    HWND window_;
};

}  // namespace blattwart
