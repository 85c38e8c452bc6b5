#pragma once

#include <map>
#include <vector>

#include "platform/Desktop.h"

namespace blattwart::test {

/// The windows of all programs.
class FakeDesktop : public Desktop {
  public:
    enum class State { normal, minimised, maximised };
    struct Window {
        std::wstring caption;
        State state = State::normal;
        bool messageBox = false;
    };

    std::map<WindowHandle, Window> windows;
    WindowHandle foregroundWindow = 0;
    WindowHandle hidden = 0;
    std::vector<std::wstring> log;  ///< what was done to which window: "showNormal 7", "setForeground 7"

    WindowHandle findWindow(const std::wstring& caption) override {
        for (const auto& [handle, window] : windows)
            if (window.caption == caption && !window.messageBox) return handle;
        return 0;
    }
    void showNormal(WindowHandle window) override {
        log.push_back(L"showNormal " + std::to_wstring(window));
        if (windows.contains(window)) windows[window].state = State::normal;
    }
    /// A minimised window stays minimised.
    void setForeground(WindowHandle window) override {
        log.push_back(L"setForeground " + std::to_wstring(window));
        if (windows.contains(window)) foregroundWindow = window;
    }
    bool isVisible(WindowHandle window) override { return window != hidden; }
    WindowHandle foreground() override { return foregroundWindow; }
};

}  // namespace blattwart::test
