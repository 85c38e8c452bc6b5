#include "win32/ComError.h"

#include <oleauto.h>

#include <cwchar>
#include <memory>

#include "win32/ComValue.h"
#include "win32/Handles.h"

namespace blattwart {

namespace {

std::wstring codeInWords(HRESULT code) {
    wchar_t text[40];
    std::swprintf(text, std::size(text), L"Automatisierungsfehler 0x%08lX.",
                  static_cast<unsigned long>(code));
    return text;
}

}  // namespace

std::wstring systemText(HRESULT code) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const std::unique_ptr<wchar_t, LocalDeleter> owner(buffer);
    std::wstring text(buffer ? buffer : L"", length);
    text.erase(text.find_last_not_of(L" \r\n") + 1);
    return text.empty() ? codeInWords(code) : text;
}

void throwFailure(HRESULT result) {
    throw RuntimeError(result, systemText(result));
}

void throwIfFailed(HRESULT result) {
    if (FAILED(result)) throwFailure(result);
}

RuntimeError ExceptionInfo::toError(HRESULT result) {
    if (result != DISP_E_EXCEPTION) return RuntimeError(result, systemText(result));
    if (info_.pfnDeferredFillIn) info_.pfnDeferredFillIn(&info_);
    HRESULT code = result;
    if (info_.scode) {
        code = info_.scode;
    } else if (info_.wCode) {
        code = info_.wCode;
    }
    const std::wstring description = textOf(info_.bstrDescription);
    return RuntimeError(code, description.empty() ? systemText(code) : description);
}

void ExceptionInfo::clear() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
    info_ = EXCEPINFO{};
}

}  // namespace blattwart
