#include "support/FakeDesktop.h"

namespace blattwart::test {

WindowHandle FakeDesktop::findWindow(const std::wstring& caption) {
    for (const auto& [handle, window] : windows) {
        if (window.caption == caption && !window.messageBox) return handle;
    }
    return 0;
}

void FakeDesktop::showNormal(WindowHandle window) {
    log.push_back(L"showNormal " + std::to_wstring(window));
    if (windows.contains(window)) windows[window].state = State::normal;
}

void FakeDesktop::setForeground(WindowHandle window) {
    log.push_back(L"setForeground " + std::to_wstring(window));
    if (windows.contains(window)) foregroundWindow = window;
}

}  // namespace blattwart::test
