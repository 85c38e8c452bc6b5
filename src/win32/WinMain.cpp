#include <windows.h>

#include <commctrl.h>

#include "platform/RuntimeError.h"
#include "shell/basMain.h"
#include "win32/base/LibrarySearch.h"
#include "win32/com/Apartment.h"
#include "win32/com/BusyHost.h"
#include "win32/com/ComAutomation.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/platform/Win32FileDialogs.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32HelpViewer.h"
#include "win32/platform/Win32Locale.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/platform/Win32Process.h"
#include "win32/platform/Win32ReadingWatch.h"
#include "win32/platform/Win32Registry.h"
#include "win32/platform/Win32Settings.h"
#include "win32/ui/Guard.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart {

namespace {

/// The program on Windows.
class Application {
  public:
    Application() {
        busyHost_.setHandlers({.busyFor = [this](std::int32_t milliseconds) { showBusy(milliseconds); },
                               .askGiveUp = [this] { return askGiveUp(); }});
    }

    int run() {
        basMain program(platform_, presenter_);
        int result = 0;
        if (guard_.guarded([&] { return program.Main(); }, false)) result = loop();
        help_.closeAll();
        presenter_.destroyWindows();
        return result;
    }

  private:
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

    void showBusy(std::int32_t milliseconds) {
        if (MainWindow* window = presenter_.mainWindow()) window->showBusy(milliseconds);
    }

    void showWork(const std::wstring& text) {
        if (MainWindow* window = presenter_.mainWindow()) window->showWork(text);
    }

    bool askGiveUp() {
        return !messages_.ask(L"AutoCAD ist beschäftigt und nimmt keine Befehle an. Weiter warten?");
    }

    Apartment apartment_;
    Win32MessageBoxes messages_;
    BusyHost busyHost_;
    Guard guard_{busyHost_, [this](const std::wstring& text) { messages_.reportError(text); }};
    ComAutomation automation_{busyHost_};
    Win32Registry registry_;
    Win32Settings settings_;
    Win32Files files_;
    Win32FileDialogs fileDialogs_;
    Win32Desktop desktop_;
    Win32Process process_;
    Win32Locale locale_;
    Win32HelpViewer help_;
    Win32ReadingWatch readings_{[this](const std::wstring& text) { showWork(text); }};
    Platform platform_{automation_, registry_, settings_, files_, messages_, fileDialogs_,
                       desktop_,    process_,  locale_,   help_,  readings_};
    Win32FormPresenter presenter_{guard_, automation_};
};

}  // namespace

}  // namespace blattwart

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    blattwart::hardenLibrarySearch();
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
