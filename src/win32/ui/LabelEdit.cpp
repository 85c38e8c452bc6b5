#include "win32/ui/LabelEdit.h"

#include <commctrl.h>

namespace blattwart {

void LabelEdit::start(const std::function<HWND()>& open, const std::wstring& text) {
    ++serial_;
    starting_ = true;
    const HWND field = open();
    starting_ = false;
    accepted_ = false;
    active_ = field != nullptr;
    if (!active_) {
        postReport(std::nullopt);
        return;
    }
    SetWindowSubclass(field, fieldProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    SetWindowTextW(field, text.c_str());
    SendMessageW(field, EM_SETSEL, 0, -1);
}

void LabelEdit::ended(const wchar_t* text) {
    if (!active_) return;
    active_ = false;
    std::optional<std::wstring> result;
    if (accepted_ && text) result = text;
    postReport(result);
}

/// The next edit must not get the report of the last one.
void LabelEdit::postReport(const std::optional<std::wstring>& text) {
    gate_.post([this, text, serial = serial_] {
        if (serial == serial_) report_(text ? &*text : nullptr);
    });
}

void LabelEdit::cancel(const std::function<void()>& close) {
    ++serial_;
    if (!active_) return;
    active_ = false;
    close();
}

LRESULT LabelEdit::fieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR edit) {
    if (message == WM_KEYDOWN && wParam == VK_RETURN) reinterpret_cast<LabelEdit*>(edit)->accepted_ = true;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(field, fieldProcedure, 1);
    return DefSubclassProc(field, message, wParam, lParam);
}

}  // namespace blattwart
