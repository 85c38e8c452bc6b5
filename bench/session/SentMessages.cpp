#include "session/SentMessages.h"

#include <windows.h>

#include <objbase.h>

#include <atomic>

#include "win32/com/ComBase.h"
#include "win32/com/ComError.h"

namespace blattwart::bench {

namespace {

constexpr GUID extension{0x3F0A5C1E, 0x6D0B, 0x4B57, {0x9A, 0x41, 0x52, 0x7C, 0x1E, 0x83, 0x60, 0xD4}};

/// COM asks a hook before it sends a message whether there is something to be sent along.
class CountingHook final : public ComBase<IChannelHook> {
  public:
    void STDMETHODCALLTYPE ClientGetSize(REFGUID, REFIID, ULONG* size) override {
        ++sent;
        *size = 0;
    }
    void STDMETHODCALLTYPE ClientFillBuffer(REFGUID, REFIID, ULONG*, void*) override {}
    void STDMETHODCALLTYPE ClientNotify(REFGUID, REFIID, ULONG, void*, DWORD, HRESULT) override {}
    void STDMETHODCALLTYPE ServerNotify(REFGUID, REFIID, ULONG, void*, DWORD) override {}
    void STDMETHODCALLTYPE ServerGetSize(REFGUID, REFIID, HRESULT, ULONG* size) override { *size = 0; }
    void STDMETHODCALLTYPE ServerFillBuffer(REFGUID, REFIID, ULONG*, void*, HRESULT) override {}

    std::atomic<int> sent = 0;
};

}  // namespace

std::function<int()> countSentMessages() {
    const auto hook = makeCom<CountingHook>();
    throwIfFailed(CoRegisterChannelHook(extension, hook.Get()));
    return [hook] { return hook->sent.load(); };
}

}  // namespace blattwart::bench
