#pragma once

#include <windows.h>

#include <functional>

namespace blattwart {

/// Offers the messages of a modal dialog's own loop before the dialog manager takes them, as long as it
/// lives. Of several the newest is asked.
class DialogKeys {
  public:
    /// `take` says whether the message is done with; it must not throw.
    explicit DialogKeys(std::function<bool(const MSG&)> take);
    DialogKeys(const DialogKeys&) = delete;
    DialogKeys& operator=(const DialogKeys&) = delete;
    ~DialogKeys();

  private:
    static LRESULT CALLBACK procedure(int code, WPARAM wParam, LPARAM lParam);

    static inline DialogKeys* newest = nullptr;
    std::function<bool(const MSG&)> take_;
    DialogKeys* before_;
    HHOOK hook_;
};

}  // namespace blattwart
