#include "win32/ui/DragSource.h"

#include <ole2.h>
#include <oleidl.h>
#include <shlobj.h>

#include <cstring>

#include "win32/com/ComBase.h"
#include "win32/platform/Win32Locale.h"

namespace blattwart {

using Microsoft::WRL::ComPtr;

namespace {

/// Our own, and with DoDragDrop only: SHCreateDataObject, whose object SHDoDragDrop needs for its picture
/// under the mouse, does not exist on every system that the program runs on.
class DragData : public ComBase<IDataObject> {
  public:
    DragData(CLIPFORMAT format, std::string bytes)
        : format_{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, bytes_(std::move(bytes)) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override {
        const HRESULT known = QueryGetData(wanted);
        if (known != S_OK) return known;
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes_.size());
        void* place = memory ? GlobalLock(memory) : nullptr;
        if (!place) return E_OUTOFMEMORY;
        std::memcpy(place, bytes_.data(), bytes_.size());
        GlobalUnlock(memory);
        *medium = STGMEDIUM{};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override {
        if (wanted->cfFormat != format_.cfFormat || wanted->dwAspect != DVASPECT_CONTENT)
            return DV_E_FORMATETC;
        return (wanted->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_TYMED;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
        return direction == DATADIR_GET ? SHCreateStdEnumFmtEtc(1, &format_, formats) : E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* same) override {
        same->ptd = nullptr;
        return DATA_S_SAMEFORMATETC;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

  private:
    FORMATETC format_;
    std::string bytes_;
};

class DragSource : public ComBase<IDropSource> {
  public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keys) override {
        if (escapePressed) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

}  // namespace

ComPtr<IDataObject> makeDragData(CLIPFORMAT format, std::string bytes) {
    return makeCom<DragData>(format, std::move(bytes));
}

void dragText(const std::wstring& text) {
    const std::string ansi = Win32Locale().toAnsi(text);
    const ComPtr<IDataObject> data = makeDragData(CF_TEXT, std::string(ansi.c_str(), ansi.size() + 1));
    DragSource source;  // all references to it end with the dragging
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(data.Get(), &source, DROPEFFECT_COPY, &effect);
}

}  // namespace blattwart
