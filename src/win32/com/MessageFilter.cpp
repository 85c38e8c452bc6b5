#include "win32/com/MessageFilter.h"

#include <objbase.h>

#include "platform/RuntimeError.h"
#include "win32/com/ComBase.h"

namespace blattwart {

using Microsoft::WRL::ComPtr;

namespace {

class MessageFilter : public ComBase<IMessageFilter> {
  public:
    explicit MessageFilter(BusyHost& busyHost) : busyHost_(busyHost) {}

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override {
        return SERVERCALL_ISHANDLED;
    }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override { return static_cast<DWORD>(-1); }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD milliseconds, DWORD) override {
        const bool waits = busyHost_.goOnWaiting(std::chrono::milliseconds(milliseconds));
        return static_cast<DWORD>(waits ? PENDINGMSG_WAITDEFPROCESS : PENDINGMSG_CANCELCALL);
    }

  private:
    BusyHost& busyHost_;
};

}  // namespace

ComPtr<IMessageFilter> makeMessageFilter(BusyHost& busyHost) {
    return makeCom<MessageFilter>(busyHost);
}

MessageFilterRegistration::MessageFilterRegistration(BusyHost& busyHost) {
    const HRESULT result =
        CoRegisterMessageFilter(makeMessageFilter(busyHost).Get(), previous_.GetAddressOf());
    if (FAILED(result)) throw RuntimeError(result, L"Der Nachrichtenfilter lässt sich nicht anmelden.");
}

MessageFilterRegistration::~MessageFilterRegistration() {
    CoRegisterMessageFilter(previous_.Get(), nullptr);
}

}  // namespace blattwart
