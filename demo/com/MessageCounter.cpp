#include "com/MessageCounter.h"

#include <windows.h>

#include <objbase.h>

#include "win32/ComBase.h"
#include "win32/ComError.h"

namespace demo {

namespace {

constexpr GUID extension{0x3F0A5C1E, 0x6D0B, 0x4B57, {0x9A, 0x41, 0x52, 0x7C, 0x1E, 0x83, 0x60, 0xD4}};
/// Of the interface that COM itself answers.
constexpr GUID remoteReferences{0x00000131, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// COM tells a hook of each message before it is carried out, on threads of its own.
class CountingHook final : public blattwart::ComBase<IChannelHook> {
  public:
    explicit CountingHook(std::shared_ptr<Exporter> exporter) : exporter_(std::move(exporter)) {}

    void STDMETHODCALLTYPE ClientGetSize(REFGUID, REFIID, ULONG* size) override { *size = 0; }
    void STDMETHODCALLTYPE ClientFillBuffer(REFGUID, REFIID, ULONG*, void*) override {}
    void STDMETHODCALLTYPE ClientNotify(REFGUID, REFIID, ULONG, void*, DWORD, HRESULT) override {}
    void STDMETHODCALLTYPE ServerNotify(REFGUID, REFIID interfaceId, ULONG, void*, DWORD) override {
        ++exporter_->counters().messages;
        if (interfaceId == remoteReferences) ++exporter_->counters().references;
    }
    void STDMETHODCALLTYPE ServerGetSize(REFGUID, REFIID, HRESULT, ULONG* size) override { *size = 0; }
    void STDMETHODCALLTYPE ServerFillBuffer(REFGUID, REFIID, ULONG*, void*, HRESULT) override {}

  private:
    std::shared_ptr<Exporter> exporter_;
};

}  // namespace

void countMessages(std::shared_ptr<Exporter> exporter) {
    const auto hook = blattwart::makeCom<CountingHook>(std::move(exporter));
    blattwart::throwIfFailed(CoRegisterChannelHook(extension, hook.Get()));
}

}  // namespace demo
