#include "win32/com/ComError.h"

#include <oleauto.h>

#include "platform/Automation.h"
#include "win32/base/SystemError.h"
#include "win32/com/ComValue.h"

namespace blattwart {

namespace {

RuntimeError failureOf(HRESULT result) {
    RuntimeError error(result, systemText(result));
    if (isAnswerLost(error))
        return {result,
                L"AutoCAD hat nicht mehr geantwortet. Es ist nicht bekannt, ob der Befehl ausgeführt wurde."};
    if (isRefused(error)) return {result, L"AutoCAD hat den Befehl nicht angenommen."};
    return error;
}

}  // namespace

void throwFailure(HRESULT result) {
    throw failureOf(result);
}

void throwIfFailed(HRESULT result) {
    if (FAILED(result)) throwFailure(result);
}

RuntimeError ExceptionInfo::toError(HRESULT result) {
    if (result != DISP_E_EXCEPTION) return failureOf(result);
    if (info_.pfnDeferredFillIn) info_.pfnDeferredFillIn(&info_);
    HRESULT code = result;
    if (info_.scode) {
        code = info_.scode;
    } else if (info_.wCode) {
        code = info_.wCode;
    }
    const std::wstring description = bstrText(info_.bstrDescription);
    return RuntimeError(code, description.empty() ? systemText(code) : description);
}

void ExceptionInfo::clear() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
    info_ = EXCEPINFO{};
}

}  // namespace blattwart
