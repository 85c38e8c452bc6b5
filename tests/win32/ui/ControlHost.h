#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/Automation.h"
#include "platform/RuntimeError.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/Guard.h"

namespace blattwart::test {

/// No other program is there.
class NoAutomation : public Automation {
  public:
    ObjectPtr running(std::wstring_view) override {
        throw RuntimeError(hresult::serverUnavailable, L"nicht da");
    }
    ObjectPtr create(std::wstring_view) override {
        throw RuntimeError(hresult::serverUnavailable, L"nicht da");
    }
};

/// Dispatches messages until none is waiting.
void pump();
/// Dispatches messages for a while.
void pumpFor(unsigned milliseconds);
/// Moves the mouse there and presses and releases its button, by messages.
void click(HWND window, POINT client, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP);
void press(HWND window, WPARAM key);
std::wstring textOf(HWND window);
/// A window of this thread with the class, below `parent`; null when there is none.
HWND childOfClass(HWND parent, const wchar_t* className);
/// The dialog or message box that is shown over `owner`; null when there is none.
HWND findDialog(HWND owner);
/// The texts of the window's controls that have no room, each with a ";" behind it.
std::wstring textsCutOff(HWND dialog);

/// A frame window that hands notifications on to the control under test.
class ControlHost {
  public:
    ControlHost();
    ~ControlHost();
    ControlHost(const ControlHost&) = delete;
    ControlHost& operator=(const ControlHost&) = delete;

    HWND window() const { return window_; }
    EventGate& gate() { return gate_; }

    std::function<LRESULT(NMHDR&)> notify;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Guard guard_{{}};
    Gate programGate_;
    EventGate gate_{guard_, programGate_};
    HWND window_;
};

/// Counts the paint messages of a window.
class PaintCount {
  public:
    explicit PaintCount(HWND window);
    ~PaintCount();
    PaintCount(const PaintCount&) = delete;
    PaintCount& operator=(const PaintCount&) = delete;

    /// Paint messages during the action and all that it causes.
    int during(const std::function<void()>& action);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR count);

    HWND window_;
    int count_ = 0;
};

}  // namespace blattwart::test
