#pragma once

#include <windows.h>

#include <deque>
#include <functional>

#include "platform/Automation.h"
#include "win32/ui/Guard.h"

namespace blattwart {

/// The way from Windows' messages into the program. Notifications of controls are answered between messages,
/// one after the other, and never while a call to another program is waiting for its answer.
class EventGate {
  public:
    /// Posted to the window whenever `runPosted` is to be called.
    static constexpr UINT message = WM_APP;

    EventGate(Guard& guard, const Automation& automation) : guard_(guard), automation_(automation) {}
    EventGate(const EventGate&) = delete;
    EventGate& operator=(const EventGate&) = delete;

    void setWindow(HWND window) { window_ = window; }

    Guard& guard() { return guard_; }

    /// Runs the work now; for what lays out and paints.
    void run(const std::function<void()>& work);
    /// Runs the work now, or not at all while an event is being worked on or a call is pending.
    void runCommand(const std::function<void()>& work);
    /// Runs the work after the current event, in the order of posting.
    void post(std::function<void()> work);
    void runPosted();
    void clear() { posted_.clear(); }

    bool callPending() const { return automation_.callPending(); }
    bool busy() const { return depth_ > 0 || callPending(); }

    /// Told after each event, when all that it changed is known.
    std::function<void()> afterEvent;

  private:
    void wake() const;

    Guard& guard_;
    const Automation& automation_;
    HWND window_ = nullptr;
    std::deque<std::function<void()>> posted_;
    int depth_ = 0;
};

}  // namespace blattwart
