#include "win32/ui/Guard.h"

#include <windows.h>

#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

/// A failing paint or timer comes again at once: its message is not shown again within this time.
constexpr unsigned long long repetitionMilliseconds = 2000;

std::wstring widened(const char* text) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
    if (length <= 1) return {};
    std::wstring result(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text, -1, result.data(), length);
    result.pop_back();
    return result;
}

std::wstring describe(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const RuntimeError& error) {
        return error.description();
    } catch (const std::exception& error) {
        return L"Unerwarteter Fehler: " + widened(error.what());
    } catch (...) {
        return L"Unerwarteter Fehler.";
    }
}

}  // namespace

void Guard::reportFailure(const std::exception_ptr& failure) noexcept {
    if (reporting_ || !report_) return;
    reporting_ = true;
    try {
        const std::wstring text = describe(failure);
        if (!isRepeated(text)) {
            report_(text);
            lastText_ = text;
            lastShown_ = GetTickCount64();
        }
    } catch (...) {
        // Nothing is left to tell the user with.
    }
    reporting_ = false;
}

bool Guard::isRepeated(const std::wstring& text) const {
    return text == lastText_ && GetTickCount64() - lastShown_ < repetitionMilliseconds;
}

}  // namespace blattwart
