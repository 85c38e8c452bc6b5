#include "win32/SystemError.h"

#include "platform/RuntimeError.h"
#include "win32/ComError.h"

namespace blattwart {

namespace {

std::int32_t numberOf(DWORD error) {
    if (error == ERROR_FILE_NOT_FOUND) return errorNumber::fileNotFound;
    if (error == ERROR_PATH_NOT_FOUND) return errorNumber::pathNotFound;
    return HRESULT_FROM_WIN32(error);
}

}  // namespace

void throwSystemError(DWORD error) {
    throw RuntimeError(numberOf(error), systemText(HRESULT_FROM_WIN32(error)));
}

}  // namespace blattwart
