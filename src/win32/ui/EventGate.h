#pragma once

#include <windows.h>

#include <deque>
#include <functional>

#include "platform/Gate.h"
#include "win32/ui/Guard.h"

namespace blattwart {

/// The way from a window's messages into the program. Notifications of controls are answered between
/// messages, one after the other, when the program's gate lets them in.
class EventGate {
  public:
    /// Posted to the window whenever `runPosted` is to be called.
    static constexpr UINT message = WM_APP;

    /// Of the main window, whose form handles what comes in as events by itself.
    EventGate(Guard& guard, Gate& gate) : guard_(guard), gate_(gate) {}
    /// Of a dialog opened at this depth of events: each command and each posted work is an event of its own.
    EventGate(Guard& guard, Gate& gate, int outer)
        : guard_(guard), gate_(gate), outer_(outer), holds_(true) {}
    EventGate(const EventGate&) = delete;
    EventGate& operator=(const EventGate&) = delete;

    void setWindow(HWND window) { window_ = window; }

    Guard& guard() { return guard_; }

    /// Runs the work now; for what lays out and paints.
    void run(const std::function<void()>& work);
    /// Runs the work now, or not at all while an event is being worked on or a call is pending.
    void runCommand(const std::function<void()>& work);
    /// Runs the work as an event of its own, which keeps others waiting; for what lets messages through and
    /// is no event of the main form.
    void hold(const std::function<void()>& work);
    /// Runs the work after the current event, in the order of posting.
    void post(std::function<void()> work);
    void runPosted();
    void clear() { posted_.clear(); }

    bool callPending() const { return gate_.callPending(); }
    bool busy() const { return gate_.busy(outer_); }

    /// Told after each event, when all that it changed is known.
    std::function<void()> afterEvent;

  private:
    void handle(const std::function<void()>& work);
    void wake() const;

    Guard& guard_;
    Gate& gate_;
    int outer_ = 0;
    bool holds_ = false;
    HWND window_ = nullptr;
    std::deque<std::function<void()>> posted_;
};

}  // namespace blattwart
