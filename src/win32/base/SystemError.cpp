#include "win32/base/SystemError.h"

#include <cwchar>
#include <memory>

#include "platform/RuntimeError.h"
#include "win32/base/Handles.h"

namespace blattwart {

namespace {

std::int32_t numberOf(DWORD error) {
    if (error == ERROR_FILE_NOT_FOUND) return errorNumber::fileNotFound;
    if (error == ERROR_PATH_NOT_FOUND) return errorNumber::pathNotFound;
    return HRESULT_FROM_WIN32(error);
}

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

void throwSystemError(DWORD error) {
    throw RuntimeError(numberOf(error), systemText(HRESULT_FROM_WIN32(error)));
}

}  // namespace blattwart
