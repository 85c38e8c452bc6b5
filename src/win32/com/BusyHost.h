#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace blattwart {

/// What the window does for the user while the host is busy. None of it may throw.
struct BusyHandlers {
    /// Called about ten times a second while a call is kept waiting, with the milliseconds since it was made;
    /// once with 0 when the waiting is over. The window shows "AutoCAD ist beschäftigt" from 1000 on.
    std::function<void(std::int32_t milliseconds)> busyFor = {};
    /// Asks the user whether to stop waiting.
    std::function<bool()> askGiveUp = {};
};

/// Makes the calls to a host that may refuse them for a while. A refused call was not carried out: it is made
/// again until the host takes it or the user gives up. Meanwhile the windows paint but take no input, and
/// posted messages and timers stay where they are.
class BusyHost {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// Asks whether to give up each time `askAfter` of waiting has passed.
    explicit BusyHost(Milliseconds askAfter = std::chrono::seconds(10)) : askAfter_(askAfter) {}
    BusyHost(const BusyHost&) = delete;
    BusyHost& operator=(const BusyHost&) = delete;

    void setHandlers(BusyHandlers handlers) { handlers_ = std::move(handlers); }

    /// Makes a call to the host. Once the user gave up, this and all further calls of the event that was
    /// being handled fail with RPC_E_CALL_REJECTED. While a call is under way no other can be made:
    /// RPC_E_CANTCALLOUT_INEXTERNALCALL.
    template <class Call>
    HRESULT call(Call&& call) {
        if (pending_) return RPC_E_CANTCALLOUT_INEXTERNALCALL;
        if (gaveUp()) return RPC_E_CALL_REJECTED;
        const Pending pending(*this);
        HRESULT result = call();
        if (!isRefusal(result)) return result;
        const Waiting waiting(*this);
        while (isRefusal(result) && waitOn()) result = call();
        return result;
    }

    /// True while a call waits for its answer or is being made again.
    bool callPending() const { return pending_; }

    /// The host has taken the pending call and not answered for so long: tells the window, and asks whether
    /// to give up each time `askAfter` has passed. False when the user gives up; whether the call is carried
    /// out is not known then.
    bool goOnWaiting(Milliseconds time);

    /// The handling of one event of the system. Having given up is forgotten when the event in which the user
    /// did so is done.
    class EventScope {
      public:
        explicit EventScope(BusyHost& host) : host_(host) { host_.beginEvent(); }
        EventScope(const EventScope&) = delete;
        EventScope& operator=(const EventScope&) = delete;
        ~EventScope() { host_.endEvent(); }

      private:
        BusyHost& host_;
    };

  private:
    using Clock = std::chrono::steady_clock;

    class Pending {
      public:
        explicit Pending(BusyHost& host) : host_(host) {
            host_.pending_ = true;
            host_.askAt_ = host_.askAfter_;
        }
        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;
        ~Pending() { host_.endCall(); }

      private:
        BusyHost& host_;
    };

    /// The waiting for a host that refused a call: wait cursor, time.
    class Waiting {
      public:
        explicit Waiting(BusyHost& host);
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;
        ~Waiting() { SetCursor(cursor_); }

      private:
        HCURSOR cursor_;
    };

    static bool isRefusal(HRESULT result) {
        return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
    }
    bool gaveUp() const { return gaveUpAt_.has_value(); }
    void beginEvent();
    void endEvent();
    void endCall();
    void reportWaiting(Milliseconds time);
    bool waitOn();
    bool userGivesUp();
    Milliseconds waited() const;
    void pumpFor(Milliseconds time) const;

    Milliseconds askAfter_;
    BusyHandlers handlers_;
    bool pending_ = false;
    bool reported_ = false;
    int eventDepth_ = 0;
    std::optional<int> gaveUpAt_;
    Clock::time_point waitingSince_;
    Milliseconds askAt_{};  ///< the waiting after which the user is asked next
};

}  // namespace blattwart
