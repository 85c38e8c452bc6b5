#pragma once

#include <cstdint>
#include <string>

namespace blattwart {

/// A top-level window of any program: the 32 significant bits of its handle; 0 for none.
using WindowHandle = std::int32_t;

/// The windows of this and of other programs.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// A top-level window with exactly this caption that is no message box, a main window of this program
    /// before others; or 0.
    virtual WindowHandle findWindow(const std::wstring& caption) = 0;
    /// Shows the window in its normal state, neither minimised nor maximised.
    virtual void showNormal(WindowHandle window) = 0;
    /// Of a window that is disabled the dialog over it comes to the front.
    virtual void setForeground(WindowHandle window) = 0;
    /// False for a window that is hidden or not there any more; a minimised one is visible.
    virtual bool isVisible(WindowHandle window) = 0;
    virtual WindowHandle foreground() = 0;
};

}  // namespace blattwart
