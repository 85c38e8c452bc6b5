#include "win32/com/MessageFilter.h"

#include <objbase.h>

#include "platform/RuntimeError.h"
#include "win32/com/ComBase.h"

namespace blattwart {

using Microsoft::WRL::ComPtr;

namespace {

BOOL CALLBACK look(HWND window, LPARAM hung) {
    if (!IsWindowVisible(window) || !IsHungAppWindow(window)) return TRUE;
    *reinterpret_cast<bool*>(hung) = true;
    return FALSE;
}

/// Whether a window of the thread that carries out the call does not react; false where the system does not
/// tell the thread.
bool isHung(HTASK callee) {
    const auto thread = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(callee));
    bool hung = false;
    // Its own result does not tell a window that was found from a thread without windows.
    if (thread != 0) EnumThreadWindows(thread, look, reinterpret_cast<LPARAM>(&hung));
    return hung;
}

class MessageFilter : public ComBase<IMessageFilter> {
  public:
    explicit MessageFilter(HostCaller& hostCaller) : hostCaller_(hostCaller) {}

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override {
        return SERVERCALL_ISHANDLED;
    }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override { return static_cast<DWORD>(-1); }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD milliseconds, DWORD) override {
        const HostState state = isHung(callee) ? HostState::hangs : HostState::works;
        const bool waits = hostCaller_.goOnWaiting(std::chrono::milliseconds(milliseconds), state);
        return static_cast<DWORD>(waits ? PENDINGMSG_WAITDEFPROCESS : PENDINGMSG_CANCELCALL);
    }

  private:
    HostCaller& hostCaller_;
};

}  // namespace

ComPtr<IMessageFilter> makeMessageFilter(HostCaller& hostCaller) {
    return makeCom<MessageFilter>(hostCaller);
}

MessageFilterRegistration::MessageFilterRegistration(HostCaller& hostCaller) {
    const HRESULT result =
        CoRegisterMessageFilter(makeMessageFilter(hostCaller).Get(), previous_.GetAddressOf());
    if (FAILED(result)) throw RuntimeError(result, L"Der Nachrichtenfilter lässt sich nicht anmelden.");
}

MessageFilterRegistration::~MessageFilterRegistration() {
    CoRegisterMessageFilter(previous_.Get(), nullptr);
}

}  // namespace blattwart
