#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace demo {

/// The main window of a server. It takes commands as text (WM_COPYDATA) and ends the program when it is
/// closed.
class ServerWindow {
  public:
    /// Obeys a command that was sent to the window; false when it does not understand it.
    using Obey = std::function<bool(const std::wstring& command)>;
    /// Paints the content.
    using Paint = std::function<void(HDC canvas, const RECT& area)>;

    /// Hidden at first. Clients find it by the name of its window class. Throws RuntimeError.
    ServerWindow(const wchar_t* windowClass, Obey obey, Paint paint = {});
    ServerWindow(const ServerWindow&) = delete;
    ServerWindow& operator=(const ServerWindow&) = delete;
    ~ServerWindow();

    HWND handle() const { return window_; }

    /// Handles messages until the window is closed; `step` comes round ten times a second.
    void run(const std::function<void()>& step = {});

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void paint();

    Obey obey_;
    Paint paint_;
    std::function<void()> step_;
    HWND window_ = nullptr;
};

/// Sends a command to the server with this window class; false when there is none or it does not understand.
bool sendCommand(const wchar_t* windowClass, const std::wstring& command);

}  // namespace demo
