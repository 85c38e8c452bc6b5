#include "demo/com/ServerWindow.h"

#include "platform/RuntimeError.h"
#include "win32/com/ComError.h"

namespace demo {

namespace {

constexpr UINT_PTR stepTimer = 1;
constexpr UINT stepMilliseconds = 100;

}  // namespace

ServerWindow::ServerWindow(const wchar_t* windowClass, Obey obey, Paint paint)
    : obey_(std::move(obey)), paint_(std::move(paint)) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = windowClass;
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, windowClass, L"", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, 0, 700, 420, nullptr,
                              nullptr, description.hInstance, nullptr);
    if (!window_) blattwart::throwIfFailed(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

ServerWindow::~ServerWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void ServerWindow::run(const std::function<void()>& step) {
    step_ = step;
    SetTimer(window_, stepTimer, stepMilliseconds, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

LRESULT CALLBACK ServerWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<ServerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->handle(message, wParam, lParam);
    } catch (const std::exception&) {
        return 0;
    }
}

LRESULT ServerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COPYDATA: {
            const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
            return obey_(
                std::wstring(static_cast<const wchar_t*>(data.lpData), data.cbData / sizeof(wchar_t)));
        }
        case WM_TIMER:
            if (step_) step_();
            return 0;
        case WM_PAINT:
            paint();
            return 0;
        case WM_CLOSE:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void ServerWindow::paint() {
    PAINTSTRUCT details;
    HDC canvas = BeginPaint(window_, &details);
    RECT area;
    GetClientRect(window_, &area);
    if (paint_) paint_(canvas, area);
    EndPaint(window_, &details);
}

bool sendCommand(const wchar_t* windowClass, const std::wstring& command) {
    HWND window = FindWindowW(windowClass, nullptr);
    if (!window) return false;
    COPYDATASTRUCT data{};
    data.cbData = static_cast<DWORD>(command.size() * sizeof(wchar_t));
    data.lpData = const_cast<wchar_t*>(command.data());
    DWORD_PTR understood = 0;
    constexpr UINT patience = 5000;
    return SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, patience,
                               &understood) &&
           understood;
}

}  // namespace demo
