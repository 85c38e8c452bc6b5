#include "win32/ui/WaitingNotice.h"

#include "res/DialogIds.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/DialogTemplate.h"

namespace blattwart {

void WaitingNotice::show(const std::wstring& status) {
    guard_.guarded([&] {
        if (!window_) {
            const DialogTemplate description(IDD_WARTEN);
            window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), description.get(), nullptr,
                                                 procedure, reinterpret_cast<LPARAM>(this));
            ShowWindow(window_, SW_SHOW);
        }
        setWindowText(GetDlgItem(window_, IDC_ZUSTAND), status);
        // Posted messages wait like all others, but not what the close button posts.
        MSG message;
        while (PeekMessageW(&message, window_, WM_COMMAND, WM_SYSCOMMAND, PM_REMOVE))
            DispatchMessageW(&message);
    });
}

void WaitingNotice::hide() {
    if (const HWND window = std::exchange(window_, nullptr)) DestroyWindow(window);
}

bool WaitingNotice::takeInput(MSG& message) {
    if (!window_ || (message.hwnd != window_ && !IsChild(window_, message.hwnd))) return false;
    if (!IsDialogMessageW(window_, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

INT_PTR CALLBACK WaitingNotice::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* self = reinterpret_cast<WaitingNotice*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    if (message != WM_COMMAND || LOWORD(wParam) != IDCANCEL) return FALSE;
    self->guard_.guarded(self->end_);
    return TRUE;
}

}  // namespace blattwart
