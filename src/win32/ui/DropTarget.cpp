#include "win32/ui/DropTarget.h"

#include <ole2.h>
#include <shellapi.h>
#include <wrl/client.h>

#include "win32/com/ComBase.h"
#include "win32/platform/Win32Locale.h"

namespace blattwart {

using Microsoft::WRL::ComPtr;

namespace {

/// Memory that a data object gives away.
class Medium {
  public:
    Medium(IDataObject& data, CLIPFORMAT format) {
        FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        if (FAILED(data.GetData(&wanted, &medium_))) medium_ = STGMEDIUM{};
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;
    ~Medium() {
        if (medium_.hGlobal) ReleaseStgMedium(&medium_);
    }

    HGLOBAL memory() const { return medium_.hGlobal; }

  private:
    STGMEDIUM medium_{};
};

bool offers(IDataObject& data, CLIPFORMAT format) {
    FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    return data.QueryGetData(&wanted) == S_OK;
}

std::vector<std::wstring> filesIn(HGLOBAL memory) {
    const auto list = static_cast<HDROP>(memory);
    const UINT count = list ? DragQueryFileW(list, 0xFFFFFFFF, nullptr, 0) : 0;
    std::vector<std::wstring> files(count);
    for (UINT index = 0; index < count; ++index) {
        std::wstring& file = files[index];
        file.resize(DragQueryFileW(list, index, nullptr, 0) + std::size_t{1});
        file.resize(DragQueryFileW(list, index, file.data(), static_cast<UINT>(file.size())));
    }
    return files;
}

/// Up to the text's NUL, or to the end of the memory where it has none.
std::wstring textIn(HGLOBAL memory) {
    const auto* bytes = static_cast<const char*>(memory ? GlobalLock(memory) : nullptr);
    if (!bytes) return {};
    const std::string_view all(bytes, GlobalSize(memory));
    std::wstring text = Win32Locale().fromAnsi(all.substr(0, all.find('\0')));
    GlobalUnlock(memory);
    return text;
}

class DropTarget : public ComBase<IDropTarget> {
  public:
    DropTarget(HWND window, Guard& guard, DropHandlers handlers)
        : window_(window), guard_(guard), handlers_(std::move(handlers)) {}

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        usable_ = offers(*data, CF_HDROP) || offers(*data, CF_TEXT);
        return DragOver(keys, place, effect);
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL place, DWORD* effect) override {
        const bool possible = guard_.guarded(
            [&] {
                return usable_ && handlers_.over({place.x, place.y});
            },
            false);
        *effect &= possible ? DROPEFFECT_COPY : DROPEFFECT_NONE;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override {
        guard_.guarded(handlers_.left);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        DragOver(keys, place, effect);
        guard_.guarded([&] { *effect == DROPEFFECT_NONE ? handlers_.left() : take(*data); });
        return S_OK;
    }

  private:
    void take(IDataObject& data) {
        // Whoever drops goes on working here: without this, what the program asks would lie behind the
        // source.
        SetForegroundWindow(GetAncestor(window_, GA_ROOT));
        if (offers(data, CF_HDROP)) {
            handlers_.files(filesIn(Medium(data, CF_HDROP).memory()));
        } else {
            handlers_.text(textIn(Medium(data, CF_TEXT).memory()));
        }
    }

    HWND window_;
    Guard& guard_;
    DropHandlers handlers_;
    bool usable_ = false;
};

}  // namespace

DropRegistration::DropRegistration(HWND window, Guard& guard, DropHandlers handlers) : window_(window) {
    const ComPtr<IDropTarget> target = makeCom<DropTarget>(window, guard, std::move(handlers));
    RegisterDragDrop(window_, target.Get());
}

DropRegistration::~DropRegistration() {
    RevokeDragDrop(window_);
}

}  // namespace blattwart
