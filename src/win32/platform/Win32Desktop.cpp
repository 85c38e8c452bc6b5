#include "win32/platform/Win32Desktop.h"

#include <array>
#include <string_view>

namespace blattwart {

namespace {

constexpr const wchar_t* messageBoxClass = L"#32770";

struct Wanted {
    const std::wstring& caption;
    HWND window = nullptr;
};

bool isOfClass(HWND window, std::wstring_view wanted) {
    std::array<wchar_t, 16> className{};
    GetClassNameW(window, className.data(), static_cast<int>(className.size()));
    return className.data() == wanted;
}

bool hasCaption(HWND window, const std::wstring& caption) {
    std::wstring text(caption.size() + 2, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return std::wstring_view(text.data(), static_cast<std::size_t>(length)) == caption;
}

BOOL CALLBACK compare(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    // An invisible one belongs to a program that is still starting: it must not be shown half made.
    if (!IsWindowVisible(window) || !hasCaption(window, wanted.caption)) return TRUE;
    if (isOfClass(window, messageBoxClass)) return TRUE;
    const bool ours = isOfClass(window, mainWindowClass);
    if (ours || !wanted.window) wanted.window = window;
    return ours ? FALSE : TRUE;
}

}  // namespace

WindowHandle Win32Desktop::findWindow(const std::wstring& caption) {
    Wanted wanted{caption};
    EnumWindows(compare, reinterpret_cast<LPARAM>(&wanted));
    return windowHandle(wanted.window);
}

void Win32Desktop::showNormal(WindowHandle window) {
    ShowWindow(nativeWindow(window), SW_SHOWNORMAL);
}

void Win32Desktop::setForeground(WindowHandle window) {
    const HWND native = nativeWindow(window);
    // A disabled one would get the keyboard and keep it from the dialog that stands over it.
    SetForegroundWindow(IsWindowEnabled(native) ? native : GetLastActivePopup(native));
}

bool Win32Desktop::isVisible(WindowHandle window) {
    return IsWindowVisible(nativeWindow(window)) != FALSE;
}

WindowHandle Win32Desktop::foreground() {
    return windowHandle(GetForegroundWindow());
}

}  // namespace blattwart
