#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "platform/Gate.h"

namespace blattwart {

/// Why a call to the host waits: it takes none, it has taken this one and carries it out, or it has taken it
/// and its windows do not react either.
enum class HostState { refuses, works, hangs };

/// What the status bar says when the waiting has lasted so long; "" in the first second.
std::wstring statusText(HostState state, std::int32_t milliseconds);
/// What the user is asked.
std::wstring giveUpQuestion(HostState state);

/// What the windows do for the user while a call to the host waits. None of it may throw.
struct WaitingHandlers {
    /// Called about ten times a second while a call is kept waiting, with the milliseconds since it was made;
    /// once with 0 when the waiting is over.
    std::function<void(HostState state, std::int32_t milliseconds)> waitingFor = {};
    /// Asks the user whether to stop waiting.
    std::function<bool(HostState state)> askGiveUp = {};
    /// Offered each key and each mouse message; true when it was for a window that works meanwhile. All
    /// others are thrown away.
    std::function<bool(MSG& message)> takeInput = {};
};

/// Thrown by a call while which the user ended the program. No error that anything but the program's start
/// may catch.
struct ProgramEnded {};

/// Makes the calls to a host that may refuse them for a while. A refused call was not carried out: it is made
/// again until the host takes it or the user gives up. Meanwhile the windows paint but take no input, and
/// posted messages and timers stay where they are.
class HostCaller {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// A user who presses a key or clicks while a call waits is asked whether to give up, once `askAfter` of
    /// waiting has passed, and not again before it has passed again.
    explicit HostCaller(Gate& gate, Milliseconds askAfter = std::chrono::seconds(10));
    HostCaller(const HostCaller&) = delete;
    HostCaller& operator=(const HostCaller&) = delete;
    ~HostCaller();

    void setHandlers(WaitingHandlers handlers) { handlers_ = std::move(handlers); }

    /// Makes a call to the host. Once the user gave up, this and all further calls of the event that was
    /// being handled fail with RPC_E_CALL_REJECTED. While a call is under way no other can be made:
    /// RPC_E_CANTCALLOUT_INEXTERNALCALL. Throws ProgramEnded from the call on in which the user ended it.
    template <class Call>
    HRESULT call(Call&& call) {
        if (gate_.callPending()) return RPC_E_CANTCALLOUT_INEXTERNALCALL;
        if (ended_) throw ProgramEnded();
        if (gate_.gaveUp()) return RPC_E_CALL_REJECTED;
        const Pending pending(*this);
        HRESULT result = call();
        if (isRefusal(result)) {
            const Waiting waiting(*this);
            while (isRefusal(result) && waitOn()) result = call();
        }
        if (ended_) throw ProgramEnded();
        return result;
    }

    /// The host has taken the pending call and not answered for so long: throws away what the user types and
    /// clicks, tells the window and asks whether to give up. False when the user does; whether the call is
    /// carried out is not known then.
    bool goOnWaiting(Milliseconds time, HostState state);

    /// The user ends the program while a call waits: the call is not waited for, and no further one is made.
    void endProgram() { ended_ = true; }

  private:
    using Clock = std::chrono::steady_clock;

    class Pending {
      public:
        explicit Pending(HostCaller& caller);
        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;
        ~Pending();

      private:
        HostCaller& caller_;
        Gate::Call call_;
    };

    /// The waiting for a host that refused a call: wait cursor, time.
    class Waiting {
      public:
        explicit Waiting(HostCaller& caller);
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;
        ~Waiting() { SetCursor(cursor_); }

      private:
        HCURSOR cursor_;
    };

    static bool isRefusal(HRESULT result) {
        return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
    }
    void reportWaiting(HostState state, Milliseconds time);
    void reportEnd();
    bool waitOn();
    bool goesOn(HostState state, Milliseconds time);
    Milliseconds waited() const;
    void pumpFor(Milliseconds time);
    void paintOnly();
    void throwInputAway();
    void throwAway(UINT first, UINT last);

    Gate& gate_;
    Milliseconds askAfter_;
    PTP_TIMER ticker_;
    WaitingHandlers handlers_;
    bool reported_ = false;
    bool impatient_ = false;  ///< the user pressed a key or clicked since he was asked last
    bool ended_ = false;
    Clock::time_point waitingSince_;
    Milliseconds askAt_{};  ///< the waiting after which the user may be asked next
};

}  // namespace blattwart
