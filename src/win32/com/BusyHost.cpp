#include "win32/com/BusyHost.h"

namespace blattwart {

namespace {

using namespace std::chrono_literals;

/// The host mostly refuses for an instant only, so the first attempts come quickly.
constexpr auto quickPause = 50ms;
constexpr auto slowPause = 100ms;
constexpr auto quickPhase = 1000ms;

/// Takes the next message of a range. The request to end the program comes whatever the range: it stays.
bool takeNext(MSG& message, UINT first, UINT last) {
    if (!PeekMessageW(&message, nullptr, first, last, PM_REMOVE)) return false;
    if (message.message != WM_QUIT) return true;
    PostQuitMessage(static_cast<int>(message.wParam));
    return false;
}

void throwAway(UINT first, UINT last) {
    MSG message;
    while (takeNext(message, first, last)) {
    }
}

/// Windows paint and answer sent messages; what the user types and clicks is lost.
void paintOnly() {
    throwAway(WM_KEYFIRST, WM_KEYLAST);
    throwAway(WM_MOUSEFIRST, WM_MOUSELAST);
    throwAway(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
    MSG message;
    // A window that does not validate itself would be asked to paint without end.
    for (int i = 0; i < 50 && takeNext(message, WM_PAINT, WM_PAINT); ++i) {
        DispatchMessageW(&message);
    }
    // Mouse messages, even thrown away, let the window under the pointer set its own cursor.
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

}  // namespace

BusyHost::Waiting::Waiting(BusyHost& host) : cursor_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {
    host.waitingSince_ = Clock::now();
    host.askAt_ = host.askAfter_;
}

bool BusyHost::goOnWaiting(Milliseconds time) {
    if (!pending_) return true;
    reportWaiting(time);
    if (time < askAt_) return true;
    // Windows goes on counting while the question is open.
    const auto asked = Clock::now();
    if (userGivesUp()) return false;
    askAt_ = time + std::chrono::duration_cast<Milliseconds>(Clock::now() - asked) + askAfter_;
    return true;
}

void BusyHost::reportWaiting(Milliseconds time) {
    reported_ = true;
    if (handlers_.busyFor) handlers_.busyFor(static_cast<std::int32_t>(time.count()));
}

bool BusyHost::userGivesUp() {
    if (!handlers_.askGiveUp || !handlers_.askGiveUp()) return false;
    gaveUpAt_ = eventDepth_;
    return true;
}

void BusyHost::beginEvent() {
    if (eventDepth_ == 0) gaveUpAt_.reset();
    ++eventDepth_;
}

void BusyHost::endEvent() {
    if (gaveUpAt_ && *gaveUpAt_ >= eventDepth_) gaveUpAt_.reset();
    --eventDepth_;
}

void BusyHost::endCall() {
    pending_ = false;
    if (!reported_) return;
    reported_ = false;
    if (handlers_.busyFor) handlers_.busyFor(0);
}

/// Lets some time pass; false when the user gives up.
bool BusyHost::waitOn() {
    pumpFor(waited() < quickPhase ? quickPause : slowPause);
    reportWaiting(waited());
    if (waited() < askAt_) return true;
    if (userGivesUp()) return false;
    askAt_ = waited() + askAfter_;
    return true;
}

BusyHost::Milliseconds BusyHost::waited() const {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - waitingSince_);
}

void BusyHost::pumpFor(Milliseconds time) const {
    const auto end = Clock::now() + time;
    for (auto now = Clock::now(); now < end; now = Clock::now()) {
        paintOnly();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>((end - now) / 1ms) + 1,
                                  QS_PAINT | QS_INPUT | QS_SENDMESSAGE);
    }
}

}  // namespace blattwart
