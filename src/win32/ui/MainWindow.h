#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "controls/Form.h"
#include "shell/frmMain.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/FrameControls.h"
#include "win32/ui/NativeMenu.h"

namespace blattwart {

/// The frame window of the main form, with its menus and controls.
class MainWindow : public FormWindow {
  public:
    /// Makes the window, still hidden.
    MainWindow(frmMain& form, Guard& guard, Gate& gate);
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow() override;

    WindowHandle handle() const override;
    Placement placement() const override;
    void setPlacement(const Placement& placement) override;
    bool minimised() const override { return IsIconic(window_); }
    float width() const override;
    void setWidth(float twips) override;
    float innerHeight() const override;
    void show() override;
    void close() override;
    void popUpMenu(MenuItem& menu) override;

    HWND window() const { return window_; }
    /// Carries out shortcuts and the keys that move the focus; true when the message is done with.
    bool translate(const MSG& message);
    /// Runs the work as an event of its own, after those that are under way.
    void post(std::function<void()> work) { gate_.post(std::move(work)); }
    /// Shows what the program waits for or what it is doing; "" when that is done.
    void showWork(const std::wstring& text);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool create();
    LRESULT handleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> handleFrame(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> handleInput(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> handleSettings(UINT message, WPARAM wParam, LPARAM lParam);

    void resized(WPARAM kind);
    void painted();
    void activated(HWND before);
    void deactivated();
    void focusPane() const;
    void ticked();
    void closing();
    void unload();
    void destroyed();
    void command(int id);
    void contextMenu(HWND control, LPARAM position);
    void setDpi(int dpi);
    bool moveFocus(WPARAM key);
    bool runShortcut(WPARAM key);

    bool isOverSplitter(POINT client) const;
    bool showSplitterCursor() const;
    void beginSplitting(POINT client);
    void split(POINT client);

    frmMain& form_;
    EventGate gate_;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    HWND window_ = nullptr;
    NativeMenu menu_;
    std::unique_ptr<FrameControls> controls_;
    HWND focus_ = nullptr;
    POINT menuPlace_{};
    bool shown_ = false;
    bool splitting_ = false;
    bool unloaded_ = false;
};

}  // namespace blattwart
