#include "win32/SystemError.h"

#include <array>
#include <string>

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

std::wstring systemText(DWORD error) {
    std::array<wchar_t, 512> text{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r')) --length;
    if (length == 0) return L"Systemfehler " + std::to_wstring(error);
    return {text.data(), length};
}

std::int32_t numberOf(DWORD error) {
    if (error == ERROR_FILE_NOT_FOUND) return errorNumber::fileNotFound;
    if (error == ERROR_PATH_NOT_FOUND) return errorNumber::pathNotFound;
    return HRESULT_FROM_WIN32(error);
}

}  // namespace

void throwSystemError(DWORD error) {
    throw RuntimeError(numberOf(error), systemText(error));
}

}  // namespace blattwart
