#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "platform/RuntimeError.h"
#include "shell/basMain.h"
#include "win32/base/LibrarySearch.h"
#include "win32/com/Apartment.h"
#include "win32/com/ComAutomation.h"
#include "win32/com/HostCaller.h"
#include "win32/platform/Win32Clipboard.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/platform/Win32FileDialogs.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32HelpViewer.h"
#include "win32/platform/Win32Installations.h"
#include "win32/platform/Win32Locale.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/platform/Win32Process.h"
#include "win32/platform/Win32ReadingWatch.h"
#include "win32/platform/Win32Registry.h"
#include "win32/platform/Win32Settings.h"
#include "win32/platform/Win32Worker.h"
#include "win32/ui/Guard.h"
#include "win32/ui/WaitingNotice.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart {

namespace {

/// The program on Windows.
class Application {
  public:
    Application() {
        hostCaller_.setHandlers({.waitingFor =
                                     [this](HostState state, std::int32_t milliseconds) {
                                         showWaiting(statusText(state, milliseconds));
                                     },
                                 .askGiveUp = [this](HostState state) { return askGiveUp(state); },
                                 .takeInput =
                                     [this](MSG& message) {
                                         readings_.noteInput(message);
                                         return presenter_.takeInput(message) || notice_.takeInput(message);
                                     }});
    }

    int run() {
        basMain program(platform_, presenter_);
        int result = 0;
        if (start(program)) result = loop();
        help_.closeAll();
        presenter_.destroyWindows();
        return result;
    }

  private:
    bool start(basMain& program) {
        return guard_.guarded(
            [&] {
                try {
                    return program.Main();
                } catch (const ProgramEnded&) {
                    return false;
                }
            },
            false);
    }

    int loop() {
        MSG message{};
        while (!process_.ended() && GetMessageW(&message, nullptr, 0, 0) > 0) {
            MainWindow* window = presenter_.mainWindow();
            if (window && window->translate(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        return 0;
    }

    void showWaiting(const std::wstring& text) {
        // What a reading says of itself stays until there is something else to say.
        if (std::exchange(waitingText_, text).empty() && text.empty()) return;
        MainWindow* window = presenter_.mainWindow();
        const bool shown = window && IsWindowVisible(window->window());
        if (shown) presenter_.showWork(text);
        if (shown || text.empty()) {
            notice_.hide();
        } else {
            notice_.show(text);
        }
    }

    void deliver(std::function<void()> done) {
        MainWindow* window = presenter_.mainWindow();
        if (window) guard_.guarded([&] { window->post(std::move(done)); });
    }

    bool askGiveUp(HostState state) { return !messages_.ask(giveUpQuestion(state)); }

    Apartment apartment_;
    Win32MessageBoxes messages_;
    Gate gate_;
    HostCaller hostCaller_{gate_};
    Guard guard_{[this](const std::wstring& text) {
        // The event that failed is over; the box must not let others in all the same.
        const Gate::Event event(gate_);
        messages_.reportError(text);
    }};
    WaitingNotice notice_{guard_, [this] { hostCaller_.endProgram(); }};
    ComAutomation automation_{hostCaller_};
    Win32Registry registry_;
    Win32Settings settings_;
    Win32Files files_;
    Win32Clipboard clipboard_;
    Win32FileDialogs fileDialogs_;
    Win32Desktop desktop_;
    Win32Process process_;
    Win32Locale locale_;
    Win32HelpViewer help_;
    Win32Installations installations_;
    std::wstring waitingText_;
    Win32ReadingWatch readings_{[this](const std::wstring& text) { presenter_.showWork(text); }};
    Win32Worker worker_{[this](std::function<void()> done) { deliver(std::move(done)); }};
    Platform platform_{automation_, registry_,    settings_,      files_,   clipboard_,
                       messages_,   fileDialogs_, desktop_,       process_, locale_,
                       help_,       readings_,    installations_, gate_,    worker_};
    Win32FormPresenter presenter_{guard_, gate_};
};

}  // namespace

}  // namespace blattwart

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    blattwart::hardenLibrarySearch();
    // A drive without a medium fails as others do, without a box of Windows' own that holds the program up.
    SetErrorMode(SEM_FAILCRITICALERRORS);
    INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX),
                                  ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    try {
        blattwart::Application application;
        return application.run();
    } catch (const blattwart::RuntimeError& error) {
        MessageBoxW(nullptr, error.description().c_str(), blattwart::applicationTitle, MB_ICONHAND);
        return 1;
    }
}
