#include "win32/BusyHost.h"

namespace blattwart {

namespace {

using namespace std::chrono_literals;

/// The host mostly refuses for an instant only, so the first attempts come quickly.
constexpr auto quickPause = 50ms;
constexpr auto slowPause = 100ms;
constexpr auto quickPhase = 1000ms;

template <class Duration>
std::int32_t inMilliseconds(Duration duration) {
    return static_cast<std::int32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(duration).count());
}

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
    host.askAt_ = host.waitingSince_ + host.askAfter_;
}

void BusyHost::reportWaiting(std::int32_t milliseconds) {
    if (!pending_) return;
    reported_ = true;
    if (handlers_.busyFor) handlers_.busyFor(milliseconds);
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
    const auto waited = Clock::now() - waitingSince_;
    pumpFor(waited < quickPhase ? quickPause : slowPause);
    reportWaiting(inMilliseconds(Clock::now() - waitingSince_));
    if (Clock::now() < askAt_) return true;
    if (handlers_.askGiveUp && handlers_.askGiveUp()) {
        gaveUpAt_ = eventDepth_;
        return false;
    }
    askAt_ = Clock::now() + askAfter_;
    return true;
}

void BusyHost::pumpFor(Milliseconds time) const {
    const auto end = Clock::now() + time;
    for (auto now = Clock::now(); now < end; now = Clock::now()) {
        paintOnly();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(inMilliseconds(end - now)) + 1,
                                  QS_PAINT | QS_INPUT | QS_SENDMESSAGE);
    }
}

}  // namespace blattwart
