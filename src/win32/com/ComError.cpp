#include "win32/com/ComError.h"

#include <oleauto.h>

#include "win32/base/SystemError.h"
#include "win32/com/ComValue.h"

namespace blattwart {

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
