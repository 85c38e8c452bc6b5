#include "win32/ui/DialogKeys.h"

#include <utility>

namespace blattwart {

DialogKeys::DialogKeys(std::function<bool(const MSG&)> take)
    : take_(std::move(take)),
      before_(std::exchange(newest, this)),
      hook_(SetWindowsHookExW(WH_MSGFILTER, procedure, nullptr, GetCurrentThreadId())) {}

DialogKeys::~DialogKeys() {
    UnhookWindowsHookEx(hook_);
    newest = before_;
}

LRESULT CALLBACK DialogKeys::procedure(int code, WPARAM wParam, LPARAM lParam) {
    const bool ofDialog = code == MSGF_DIALOGBOX && newest;
    if (ofDialog && newest->take_(*reinterpret_cast<const MSG*>(lParam))) return TRUE;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace blattwart
