#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "win32/ui/Guard.h"

namespace blattwart {

/// A small window that stands in for the main window as long as that cannot be shown because the host does
/// not answer. Its caption is another one than the main window's, by which a second instance finds that.
class WaitingNotice {
  public:
    /// `end` is called when the user ends the program.
    WaitingNotice(Guard& guard, std::function<void()> end) : guard_(guard), end_(std::move(end)) {}
    WaitingNotice(const WaitingNotice&) = delete;
    WaitingNotice& operator=(const WaitingNotice&) = delete;
    ~WaitingNotice() { hide(); }

    /// Says what the host does. Where Windows refuses the window nothing is shown.
    void show(const std::wstring& status);
    void hide();
    /// Carries out a key or mouse message for the notice; false for those of other windows.
    bool takeInput(MSG& message);

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Guard& guard_;
    std::function<void()> end_;
    HWND window_ = nullptr;
};

}  // namespace blattwart
