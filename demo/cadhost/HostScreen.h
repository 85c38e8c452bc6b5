#pragma once

#include <windows.h>

#include <string>

#include "demo/host/Host.h"

namespace demo {

/// What the user sees of the host: keeps the main window in line with it, paints what is open, shows its
/// dialogs.
class HostScreen {
  public:
    /// With `silent` dialogs are not shown.
    HostScreen(Host& host, bool silent) : host_(host), silent_(silent) {}

    void attach(HWND window);
    /// Brings the window in line with the host.
    void update();
    /// Shows what is open, from time to time: it takes longer the more is open.
    void updateContent();
    void paint(HDC canvas, const RECT& area) const;
    /// Shows the host's dialog when one is open.
    void showDialog();

  private:
    void updateTitle();
    void updateVisibility();

    Host& host_;
    bool silent_;
    bool showingDialog_ = false;
    HWND window_ = nullptr;
    bool shown_ = false;
    std::wstring content_;
};

}  // namespace demo
