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
    std::vector<std::wstring> log;  ///< what was done to which window: "showNormal 7", "setForeground 7"

    WindowHandle findWindow(const std::wstring& caption) override;
    void showNormal(WindowHandle window) override;
    /// A minimised window stays minimised.
    void setForeground(WindowHandle window) override;
    WindowHandle foreground() override { return foregroundWindow; }
};

}  // namespace blattwart::test
