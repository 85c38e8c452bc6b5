#include "win32/ui/MainWindow.h"

#include <windowsx.h>

#include "platform/Platform.h"
#include "win32/base/SystemError.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Pictures.h"

namespace blattwart {

namespace {

constexpr int firstMenuCommand = 0x2000;
constexpr UINT_PTR timerId = 1;

void registerWindowClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = programIcon(SM_CXICON);
    description.hIconSm = programIcon(SM_CXSMICON);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = mainWindowClass;
    if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) throwSystemError();
}

RECT clientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client;
}

/// Whether the window is one of our own, a message box or a dialog.
bool isOurs(HWND window) {
    return window && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

bool isInMenuOrMove() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    constexpr DWORD loops = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return (info.flags & loops) != 0;
}

}  // namespace

MainWindow::MainWindow(frmMain& form, Guard& guard, Gate& gate)
    : form_(form), gate_(guard, gate), menu_(form.menuBar, firstMenuCommand, Menu(CreateMenu())) {
    registerWindowClass(procedure);
    if (!create()) throwSystemError();
    gate_.setWindow(window_);
    try {
        controls_ = std::make_unique<FrameControls>(window_, form_, gate_);
    } catch (...) {
        // Left behind, its procedure would call an object that never came to be.
        const HWND window = window_;
        destroyed();
        DestroyWindow(window);
        throw;
    }
    gate_.afterEvent = [this] {
        if (controls_) controls_->layOut();
    };
    focus_ = controls_->tree().handle();
    setDpi(windowDpi(window_));
}

/// The window's procedure learns its handle from its first message.
bool MainWindow::create() {
    return CreateWindowExW(0, mainWindowClass, applicationTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr,
                           menu_.handle(), GetModuleHandleW(nullptr), this) != nullptr;
}

MainWindow::~MainWindow() {
    if (window_) DestroyWindow(window_);
}

WindowHandle MainWindow::handle() const {
    return windowHandle(window_);
}

Placement MainWindow::placement() const {
    RECT rectangle{};
    GetWindowRect(window_, &rectangle);
    const int dpi = systemDpi();
    return {toTwips(rectangle.left, dpi), toTwips(rectangle.top, dpi),
            toTwips(rectangle.right - rectangle.left, dpi), toTwips(rectangle.bottom - rectangle.top, dpi)};
}

void MainWindow::setPlacement(const Placement& placement) {
    const int dpi = systemDpi();
    SetWindowPos(window_, nullptr, toPixels(placement.left, dpi), toPixels(placement.top, dpi),
                 toPixels(placement.width, dpi), toPixels(placement.height, dpi),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

float MainWindow::width() const {
    return toTwips(clientOf(window_).right, dpi_) + frameAllowance;
}

void MainWindow::setWidth(float twips) {
    RECT frame{};
    GetWindowRect(window_, &frame);
    int client = toPixels(twips - frameAllowance, dpi_);
    if (toTwips(client, dpi_) + frameAllowance < twips) ++client;
    const auto borders = frame.right - frame.left - clientOf(window_).right;
    SetWindowPos(window_, nullptr, 0, 0, client + static_cast<int>(borders),
                 static_cast<int>(frame.bottom - frame.top), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

float MainWindow::innerHeight() const {
    return toTwips(clientOf(window_).bottom, dpi_);
}

void MainWindow::show() {
    shown_ = true;
    resized(SIZE_RESTORED);
    ShowWindow(window_, SW_SHOWDEFAULT);
    UpdateWindow(window_);
    SetTimer(window_, timerId, frmMain::timerInterval, nullptr);
}

void MainWindow::close() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
}

void MainWindow::popUpMenu(MenuItem& menu) {
    const MenuItem* chosen = chooseFromMenu(window_, menu, menuPlace_);
    if (chosen && chosen->click) gate_.post(chosen->click);
}

void MainWindow::showWork(const std::wstring& text) {
    if (controls_) controls_->statusBar().showBusy(text);
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<MainWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    return self->gate_.guard().guarded([&] { return self->handleMessage(message, wParam, lParam); },
                                       LRESULT{0});
}

LRESULT MainWindow::handleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    std::optional<LRESULT> result;
    if (controls_) {
        result = handleFrame(message, wParam, lParam);
        if (!result) result = handleInput(message, wParam, lParam);
        if (!result) result = handleSettings(message, wParam, lParam);
    }
    return result ? *result : DefWindowProcW(window_, message, wParam, lParam);
}

std::optional<LRESULT> MainWindow::handleFrame(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            resized(wParam);
            return 0;
        case WM_PAINT:
            painted();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) {
                deactivated();
            } else {
                activated(reinterpret_cast<HWND>(lParam));
            }
            return 0;
        case WM_SETFOCUS:
            focusPane();
            return 0;
        case WM_TIMER:
            ticked();
            return 0;
        case EventGate::message:
            gate_.runPosted();
            return 0;
        case WM_CLOSE:
            closing();
            return 0;
        case WM_ENDSESSION:
            if (wParam) unload();
            return 0;
        case WM_DESTROY:
            destroyed();
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> MainWindow::handleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_COMMAND:
            command(LOWORD(wParam));
            return 0;
        case WM_NOTIFY:
            return controls_->notify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_CONTEXTMENU:
            contextMenu(reinterpret_cast<HWND>(wParam), lParam);
            return 0;
        case WM_INITMENUPOPUP:
            menu_.opening(reinterpret_cast<HMENU>(wParam));
            return 0;
        case WM_SETCURSOR:
            return reinterpret_cast<HWND>(wParam) == window_ && LOWORD(lParam) == HTCLIENT &&
                           showSplitterCursor()
                       ? std::optional<LRESULT>(TRUE)
                       : std::nullopt;
        case WM_LBUTTONDOWN:
            beginSplitting(point);
            return 0;
        case WM_MOUSEMOVE:
            split(point);
            return 0;
        case WM_LBUTTONUP:
            if (splitting_) ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            if (std::exchange(splitting_, false)) gate_.run([this] { form_.imgSplitter_MouseUp(); });
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> MainWindow::handleSettings(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr UINT dpiChanged = 0x02E0;
    switch (message) {
        case dpiChanged: {
            const RECT& suggested = *reinterpret_cast<const RECT*>(lParam);
            setDpi(HIWORD(wParam));
            // Still hidden, the window is on its way to the place that was saved, whose size is right
            // already.
            if (!IsWindowVisible(window_)) return 0;
            SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                         suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
            return 0;
        }
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
            // Controls hear of it from their parent only.
            for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
                SendMessageW(child, message, wParam, lParam);
            }
            // Programs send this for all sorts of settings; what is shown depends on the font only.
            if (!controls_->hasUsersFont()) setDpi(dpi_);
            return 0;
        default:
            return std::nullopt;
    }
}

void MainWindow::setDpi(int dpi) {
    dpi_ = dpi;
    gate_.run([&] { controls_->setDpi(dpi); });
    resized(SIZE_RESTORED);
}

void MainWindow::resized(WPARAM kind) {
    if (!shown_ || kind == SIZE_MINIMIZED) return;
    if (GetFocus() == window_) focusPane();
    controls_->frameChanged();
    gate_.run([this] { form_.Form_Resize(); });
}

void MainWindow::painted() {
    PAINTSTRUCT paint{};
    BeginPaint(window_, &paint);
    EndPaint(window_, &paint);
    gate_.run([this] { form_.Form_Paint(); });
}

void MainWindow::deactivated() {
    const HWND focus = GetFocus();
    if (controls_->isTree(focus) || controls_->isList(focus)) focus_ = focus;
}

void MainWindow::activated(HWND before) {
    focusPane();
    if (shown_ && !isOurs(before)) gate_.post([this] { form_.Form_Activate(); });
}

/// Gives the keyboard to the pane that had it last. A minimised window keeps it for itself: nobody sees what
/// keys would do in its panes.
void MainWindow::focusPane() const {
    if (!minimised()) SetFocus(focus_);
}

/// The watchdog's tick, unless something is under way that a refresh would tear away from the user.
void MainWindow::ticked() {
    if (!IsWindowEnabled(window_) || GetCapture() || isInMenuOrMove()) return;
    gate_.runCommand([this] { form_.ctlTimer_Timer(); });
}

void MainWindow::closing() {
    if (gate_.busy()) return;
    unload();
    DestroyWindow(window_);
    PostQuitMessage(0);
}

void MainWindow::unload() {
    if (std::exchange(unloaded_, true)) return;
    gate_.run([this] { form_.Form_Unload(); });
}

void MainWindow::destroyed() {
    KillTimer(window_, timerId);
    gate_.clear();
    SetMenu(window_, nullptr);
    const auto dying = std::move(controls_);
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    window_ = nullptr;
}

void MainWindow::command(int id) {
    if (controls_->toolBar().command(id)) return;
    const MenuItem* item = menu_.item(id);
    if (item && item->click) gate_.runCommand(item->click);
}

void MainWindow::contextMenu(HWND control, LPARAM position) {
    const bool byKey = position == -1;
    const POINT screen{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    const auto pop = [this](POINT place, const std::function<void()>& event) {
        gate_.post([this, place, &event] {
            menuPlace_ = place;
            if (event) event();
        });
    };
    if (controls_->isTree(control)) {
        TreeWindow& tree = controls_->tree();
        pop(byKey ? tree.contextMenuByKey() : tree.contextMenuAt(screen),
            form_.tvTreeView.events.contextMenu);
    } else if (controls_->isList(control)) {
        pop(byKey ? controls_->list().contextMenuByKey() : screen, form_.lvListView.events.contextMenu);
    }
}

bool MainWindow::isOverSplitter(POINT client) const {
    const RECT gap = controls_->splitterGap();
    return PtInRect(&gap, client) != FALSE;
}

bool MainWindow::showSplitterCursor() const {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    if (!isOverSplitter(point)) return false;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

void MainWindow::beginSplitting(POINT client) {
    if (!isOverSplitter(client)) return;
    splitting_ = true;
    SetCapture(window_);
    gate_.run([this] { form_.imgSplitter_MouseDown(); });
}

void MainWindow::split(POINT client) {
    if (!splitting_) return;
    gate_.run([&] { form_.imgSplitter_MouseMove(toTwips(client.x, dpi_) - form_.imgSplitter.left()); });
}

}  // namespace blattwart
