#include "ControlHost.h"

#include <ole2.h>

namespace blattwart::test {

void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void pumpFor(unsigned milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (GetTickCount64() < end) {
        pump();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

void click(HWND window, POINT client, UINT down, UINT up) {
    POINT screen = client;
    ClientToScreen(window, &screen);
    SetCursorPos(screen.x, screen.y);
    const LPARAM place = MAKELPARAM(client.x, client.y);
    PostMessageW(window, down, down == WM_RBUTTONDOWN ? MK_RBUTTON : MK_LBUTTON, place);
    PostMessageW(window, up, 0, place);
    pump();
}

void press(HWND window, WPARAM key) {
    SendMessageW(window, WM_KEYDOWN, key, 0);
    SendMessageW(window, WM_KEYUP, key, 0);
    pump();
}

std::wstring textOf(HWND window) {
    std::wstring text(256, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 256)));
    return text;
}

HWND childOfClass(HWND parent, const wchar_t* className) {
    return FindWindowExW(parent, nullptr, className, nullptr);
}

HWND findDialog(HWND owner) {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, L"#32770", nullptr)))
        if (GetWindow(window, GW_OWNER) == owner && IsWindowVisible(window)) return window;
    return nullptr;
}

std::wstring textsCutOff(HWND dialog) {
    std::wstring cutOff;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const std::wstring text = textOf(child);
        const HDC dc = GetDC(child);
        const HGDIOBJ before =
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
        SIZE size{};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(dc, before);
        ReleaseDC(child, dc);
        RECT room{};
        GetClientRect(child, &room);
        if (size.cx > room.right || size.cy > room.bottom) cutOff += text + L";";
    }
    return cutOff;
}

ControlHost::ControlHost() {
    OleInitialize(nullptr);
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = L"BlattwartControlHost";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, L"Test", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                              100, 100, 700, 500, nullptr, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    gate_.setWindow(window_);
    ShowWindow(window_, SW_SHOWNORMAL);
    pump();
}

ControlHost::~ControlHost() {
    DestroyWindow(window_);
    pump();
    OleUninitialize();
}

LRESULT CALLBACK ControlHost::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<ControlHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == EventGate::message) self->gate_.runPosted();
    if (self && message == WM_NOTIFY && self->notify) return self->notify(*reinterpret_cast<NMHDR*>(lParam));
    return DefWindowProcW(window, message, wParam, lParam);
}

PaintCount::PaintCount(HWND window) : window_(window) {
    SetWindowSubclass(window_, procedure, 99, reinterpret_cast<DWORD_PTR>(&count_));
    pumpFor(50);
}

PaintCount::~PaintCount() {
    RemoveWindowSubclass(window_, procedure, 99);
}

int PaintCount::during(const std::function<void()>& action) {
    pump();
    count_ = 0;
    action();
    pump();
    return count_;
}

LRESULT CALLBACK PaintCount::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR count) {
    if (message == WM_PAINT) ++*reinterpret_cast<int*>(count);
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace blattwart::test
