#include "win32/com/HostCaller.h"

#include <algorithm>

namespace blattwart {

namespace {

using namespace std::chrono_literals;

/// The host mostly refuses for an instant only, so the first attempts come quickly.
constexpr auto quickPause = 50ms;
constexpr auto slowPause = 100ms;
constexpr auto quickPhase = 1000ms;
/// After so long the user is told.
constexpr auto noticeable = 1000ms;
/// How long a call that may take its time has left once the user wants an end.
constexpr auto patience = 2min;
/// What a user does in this time he does without having seen that the program waits; it stays for afterwards.
constexpr auto typedAhead = 500ms;

/// Takes the next message of a range. The request to end the program comes whatever the range: it stays.
bool takeNext(MSG& message, UINT first, UINT last, HWND window = nullptr) {
    if (!PeekMessageW(&message, window, first, last, PM_REMOVE)) return false;
    if (message.message != WM_QUIT) return true;
    PostQuitMessage(static_cast<int>(message.wParam));
    return false;
}

/// The system tells of a call that waits only when a message comes in: this one sees to it that some do.
constexpr UINT tickMessage = WM_APP;

void CALLBACK tick(PTP_CALLBACK_INSTANCE, void* thread, PTP_TIMER) {
    PostThreadMessageW(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(thread)), tickMessage, 0, 0);
}

void setTicker(PTP_TIMER ticker, bool on) {
    constexpr auto milliseconds = static_cast<DWORD>(slowPause.count());
    ULARGE_INTEGER due{};
    due.QuadPart = static_cast<ULONGLONG>(-10000LL * milliseconds);  // from now on
    FILETIME time{due.LowPart, due.HighPart};
    SetThreadpoolTimer(ticker, on ? &time : nullptr, on ? milliseconds : 0, 0);
}

void dropTicks() {
    const auto ofNoWindow = reinterpret_cast<HWND>(-1);
    MSG message;
    while (takeNext(message, tickMessage, tickMessage, ofNoWindow)) {
    }
}

/// Whether the user wants something, not only moves the mouse across.
bool isImpatience(UINT message) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
        case WM_NCRBUTTONDOWN:
            return true;
        default:
            return false;
    }
}

}  // namespace

std::wstring statusText(HostState state, std::int32_t milliseconds) {
    if (milliseconds < noticeable.count()) return {};
    switch (state) {
        case HostState::refuses:
            return L"AutoCAD ist beschäftigt";
        case HostState::works:
            return L"AutoCAD arbeitet …";
        default:
            return L"AutoCAD reagiert nicht";
    }
}

std::wstring giveUpQuestion(HostState state) {
    switch (state) {
        case HostState::refuses:
            return L"AutoCAD ist beschäftigt und nimmt keine Befehle an. Weiter warten?";
        case HostState::works:
            return L"AutoCAD führt einen Befehl aus und ist noch nicht fertig. Weiter warten?\n\nMit 'Nein' "
                   L"wird nicht mehr gewartet; AutoCAD führt den Befehl vielleicht trotzdem zu Ende.";
        default:
            return L"AutoCAD hat einen Befehl angenommen und reagiert seitdem nicht. Weiter warten?\n\nMit "
                   L"'Nein' wird nicht mehr gewartet; ob der Befehl noch ausgeführt wird, ist nicht bekannt.";
    }
}

HostCaller::HostCaller(Gate& gate, Milliseconds askAfter)
    : gate_(gate),
      askAfter_(askAfter),
      ticker_(
          CreateThreadpoolTimer(tick, reinterpret_cast<void*>(ULONG_PTR{GetCurrentThreadId()}), nullptr)) {}

HostCaller::~HostCaller() {
    CloseThreadpoolTimer(ticker_);
}

HostCaller::Pending::Pending(HostCaller& caller) : caller_(caller), call_(caller.gate_) {
    caller_.askAt_ = caller_.askAfter_;
    caller_.impatient_ = false;
    caller_.refused_ = false;
    caller_.waitingSince_ = Clock::now();
    setTicker(caller_.ticker_, true);
}

HostCaller::Pending::~Pending() {
    setTicker(caller_.ticker_, false);
    caller_.reportEnd();
}

HostCaller::Waiting::Waiting(HostCaller& caller) : cursor_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {
    caller.refused_ = true;
}

bool HostCaller::goOnWaiting(Milliseconds time, HostState state) {
    if (!gate_.callPending()) return true;
    dropTicks();
    // A call made again begins anew for the system, not for the user.
    const Milliseconds whole = std::max(time, waited());
    if (whole >= typedAhead) throwInputAway();
    // While a refused call is made again and again, what lies between the attempts tells of the waiting.
    if (refused_ && time < noticeable) return !ended_;
    return goesOn(state, whole);
}

/// Tells of the waiting; false when the user gives up.
bool HostCaller::goesOn(HostState state, Milliseconds time) {
    reportWaiting(state, time);
    // A system that does not cancel the call must not have the user asked again.
    if (ended_ || gate_.gaveUp()) return false;
    if (gate_.patient()) {
        askAt_ = time + patience;
        impatient_ = false;
        return true;
    }
    if (time < askAt_ || !impatient_ || !handlers_.askGiveUp) return true;
    // The waiting goes on while the question is open.
    const auto asked = Clock::now();
    if (handlers_.askGiveUp(state)) {
        gate_.giveUp();
        return false;
    }
    askAt_ = time + std::chrono::duration_cast<Milliseconds>(Clock::now() - asked) + askAfter_;
    impatient_ = false;
    return true;
}

void HostCaller::reportWaiting(HostState state, Milliseconds time) {
    reported_ = true;
    if (handlers_.waitingFor) handlers_.waitingFor(state, static_cast<std::int32_t>(time.count()));
}

void HostCaller::reportEnd() {
    if (!std::exchange(reported_, false)) return;
    if (handlers_.waitingFor) handlers_.waitingFor(HostState::refuses, 0);
}

/// Lets some time pass; false when the user gives up.
bool HostCaller::waitOn() {
    pumpFor(waited() < quickPhase ? quickPause : slowPause);
    return goesOn(HostState::refuses, waited());
}

HostCaller::Milliseconds HostCaller::waited() const {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - waitingSince_);
}

void HostCaller::pumpFor(Milliseconds time) {
    const auto end = Clock::now() + time;
    for (auto now = Clock::now(); now < end; now = Clock::now()) {
        paintOnly();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>((end - now) / 1ms) + 1,
                                  QS_PAINT | QS_INPUT | QS_SENDMESSAGE);
    }
}

/// Windows paint and answer sent messages; what the user types and clicks is lost.
void HostCaller::paintOnly() {
    dropTicks();
    throwInputAway();
    MSG message;
    // A window that does not validate itself would be asked to paint without end.
    for (int i = 0; i < 50 && takeNext(message, WM_PAINT, WM_PAINT); ++i) {
        DispatchMessageW(&message);
    }
    // Mouse messages, even thrown away, let the window under the pointer set its own cursor.
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

void HostCaller::throwInputAway() {
    throwAway(WM_KEYFIRST, WM_KEYLAST);
    throwAway(WM_MOUSEFIRST, WM_MOUSELAST);
    throwAway(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
}

void HostCaller::throwAway(UINT first, UINT last) {
    MSG message;
    while (takeNext(message, first, last)) {
        if (handlers_.takeInput && handlers_.takeInput(message)) continue;
        if (isImpatience(message.message)) impatient_ = true;
    }
}

}  // namespace blattwart
