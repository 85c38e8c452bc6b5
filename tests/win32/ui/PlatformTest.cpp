#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "ControlHost.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/platform/Win32HelpViewer.h"
#include "win32/platform/Win32Locale.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/platform/Win32Process.h"
#include "win32/platform/Win32ReadingWatch.h"
#include "win32/platform/Win32Worker.h"
#include "win32/ui/Dpi.h"

namespace blattwart::test {

namespace {

TEST(Win32LocaleTest, ComparesAsAFileListDoes) {
    const Win32Locale locale;
    const std::array<const wchar_t*, 6> ordered{L"",        L"Blatt 2", L"BLATT 10",
                                                L"Öffnung", L"Plan",    L"Zeichnung"};
    for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
        EXPECT_LT(locale.compareNaturally(ordered.at(i), ordered.at(i + 1)), 0) << ordered.at(i);
        EXPECT_GT(locale.compareNaturally(ordered.at(i + 1), ordered.at(i)), 0) << ordered.at(i);
    }
    EXPECT_EQ(locale.compareNaturally(L"Blatt 2", L"BLATT 2"), 0);
    EXPECT_EQ(locale.upperCase(L"größe.dwt"), L"GRÖßE.DWT");
    EXPECT_EQ(locale.decimalSeparator(), L",");
    EXPECT_EQ(locale.toAnsi(L"Größe €"),
              "Gr\xf6\xdf"
              "e \x80");
    EXPECT_EQ(locale.fromAnsi(locale.toAnsi(L"Größe €")), L"Größe €");
    EXPECT_EQ(locale.fromAnsi(std::string_view("a\0b", 3)).size(), 3u);
}

TEST(DpiTest, ConvertsTwipsAndBack) {
    for (const int dpi : {96, 120, 144, 192}) {
        for (const int pixels : {-1920, -1, 0, 1, 433, 3840}) {
            EXPECT_EQ(toPixels(toTwips(pixels, dpi), dpi), pixels) << dpi;
        }
        EXPECT_EQ(toPixels(1440, dpi), dpi);
    }
    EXPECT_EQ(toPixels(40, 96), 3);
    EXPECT_EQ(toPixels(1e30F, 96), 32767) << "also what no screen has room for";
}

TEST(Win32ProcessTest, KnowsWhetherItRunsAlready) {
    Win32Process first;
    Win32Process second;
    EXPECT_FALSE(first.previousInstance());
    EXPECT_FALSE(first.previousInstance()) << "it is not its own predecessor";
    EXPECT_TRUE(second.previousInstance());
    EXPECT_THROW(first.start(L"C:\\fehlt\\nichts.exe"), RuntimeError);
}

/// A folder with a script in it that writes down with what it was started; the working folder meanwhile.
class StartedScript {
  public:
    StartedScript() {
        std::array<wchar_t, MAX_PATH> path{};
        GetCurrentDirectoryW(MAX_PATH, path.data());
        before_ = path.data();
        GetTempPathW(MAX_PATH, path.data());
        folder_ = std::wstring(path.data()) + L"Start";
        CreateDirectoryW(folder_.c_str(), nullptr);
        std::ofstream(std::filesystem::path(script())) << "@echo %*> "
                                                       << "%~dp0started.txt\r\n";
        SetCurrentDirectoryW(folder_.c_str());
    }
    ~StartedScript() {
        SetCurrentDirectoryW(before_.c_str());
        std::filesystem::remove_all(folder_);
    }

    std::wstring script() const { return folder_ + L"\\probe.bat"; }
    std::wstring folder(const wchar_t* name) const {
        CreateDirectoryW((folder_ + L"\\" + name).c_str(), nullptr);
        return folder_ + L"\\" + name;
    }
    /// Its arguments as it got them; "" when it does not start.
    std::string arguments() const {
        std::string line;
        for (int i = 0; i < 100 && line.empty(); ++i) {
            Sleep(20);
            std::ifstream file(std::filesystem::path(folder_ + L"\\started.txt"));
            std::getline(file, line);
        }
        return line;
    }

  private:
    std::wstring before_;
    std::wstring folder_;
};

TEST(Win32ProcessTest, StartsProgramsOfKnownPlacesWithWholePaths) {
    const StartedScript script;
    Win32Process process;
    EXPECT_THROW(process.start(L"probe.bat"), RuntimeError) << "not from the working folder";
    const std::wstring folder = script.folder(L"Plan, Haus");
    process.start(script.script() + L" " + folder + L"\\");
    EXPECT_EQ(script.arguments(), Win32Locale().toAnsi(L'"' + folder + L'"'));
}

/// Answers a message box from outside, as its user would.
class MessageBoxUser {
  public:
    MessageBoxUser(const wchar_t* caption, WPARAM answer)
        : thread_([this, caption, answer] {
              for (int i = 0; i < 500 && !box_; ++i) {
                  Sleep(10);
                  box_ = FindWindowW(L"#32770", caption);
                  if (box_ && !IsWindowVisible(box_)) box_ = nullptr;
              }
              found_ = desktop_.findWindow(caption);
              desktop_.setForeground(found_);
              Sleep(50);
              hasForeground_ = desktop_.foreground() == windowHandle(box_);
              text_ = textOf(GetDlgItem(box_, 0xffff));
              owner_ = GetWindow(box_, GW_OWNER);
              PostMessageW(box_, WM_COMMAND, answer, 0);
          }) {}
    ~MessageBoxUser() {
        if (thread_.joinable()) thread_.join();
    }
    void wait() { thread_.join(); }

    WindowHandle found() const { return found_; }
    const std::wstring& text() const { return text_; }
    HWND owner() const { return owner_; }
    bool hasForeground() const { return hasForeground_; }

  private:
    Win32Desktop desktop_;
    bool hasForeground_ = false;
    HWND box_ = nullptr;
    HWND owner_ = nullptr;
    WindowHandle found_ = 0;
    std::wstring text_;
    std::thread thread_;
};

TEST(Win32DesktopTest, FindsTheWindowAndNotTheMessageBoxOverIt) {
    Win32Desktop desktop;
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), 0);
    const ControlHost host;
    SetWindowTextW(host.window(), L"BlattwartProbe");
    SetForegroundWindow(host.window());
    pump();
    MessageBoxUser user(L"BlattwartProbe", IDYES);
    Win32MessageBoxes messages;
    EXPECT_EQ(
        messages.show(L"Größe löschen?", L"BlattwartProbe", MessageButtons::yesNo, MessageIcon::question),
        MessageAnswer::yes);
    user.wait();
    EXPECT_EQ(user.found(), windowHandle(host.window()));
    EXPECT_EQ(user.text(), L"Größe löschen?");
    EXPECT_EQ(user.owner(), host.window());
    EXPECT_TRUE(user.hasForeground()) << "its owner is disabled";
    EXPECT_EQ(desktop.findWindow(L"Blattwartprobe"), 0) << "exactly this caption";
    WNDCLASSW own{};
    own.lpfnWndProc = DefWindowProcW;
    own.lpszClassName = mainWindowClass;
    own.hInstance = GetModuleHandleW(L"kernel32.dll");  // beside the program's own class of this name
    RegisterClassW(&own);
    const HWND ours = CreateWindowW(mainWindowClass, L"BlattwartProbe", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                    0, 200, 100, nullptr, nullptr, own.hInstance, nullptr);
    SetForegroundWindow(host.window());
    pump();
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), windowHandle(ours)) << "before others, wherever it lies";
    DestroyWindow(ours);
    UnregisterClassW(mainWindowClass, own.hInstance);
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), windowHandle(host.window()));
    ShowWindow(host.window(), SW_MINIMIZE);
    pumpFor(50);
    desktop.showNormal(windowHandle(host.window()));
    desktop.setForeground(windowHandle(host.window()));
    pumpFor(50);
    EXPECT_FALSE(IsIconic(host.window()));
    EXPECT_EQ(desktop.foreground(), windowHandle(host.window()));
    EXPECT_TRUE(desktop.isVisible(windowHandle(host.window())));
    ShowWindow(host.window(), SW_HIDE);
    EXPECT_FALSE(desktop.isVisible(windowHandle(host.window())));
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), 0) << "still hidden";
}

TEST(Win32WorkerTest, WorksBesideTheProgramAndHoldsItsEndUpForNothing) {
    const DWORD own = GetCurrentThreadId();
    std::vector<DWORD> workedOn;
    std::vector<DWORD> doneOn;
    const auto done = [&] { doneOn.push_back(GetCurrentThreadId()); };
    const HANDLE pipe =
        CreateNamedPipeW(L"\\\\.\\pipe\\BlattwartProbe", PIPE_ACCESS_OUTBOUND, 0, 1, 0, 0, 0, nullptr);
    const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::atomic<bool> readingEnded = false;
    const auto readForEver = [&] {
        const HANDLE end =
            CreateFileW(L"\\\\.\\pipe\\BlattwartProbe", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        char byte = 0;
        DWORD read = 0;
        ReadFile(end, &byte, 1, &read, nullptr);
        readingEnded = true;
        CloseHandle(end);
    };
    const auto endsAtOnce = [&](const std::function<void()>& lastWork) {
        auto worker = std::make_unique<Win32Worker>([](const std::function<void()>& work) { work(); });
        const auto work = [&] { workedOn.push_back(GetCurrentThreadId()); };
        workedOn.clear();
        doneOn.clear();
        worker->run([] { throw std::bad_alloc(); }, done);
        worker->run(work, done);
        for (int i = 0; i < 100 && doneOn.size() < 2; ++i) pumpFor(10);
        EXPECT_EQ(doneOn, (std::vector<DWORD>{own, own}));
        EXPECT_NE(workedOn, std::vector<DWORD>{own});
        worker->run(lastWork, done);
        pumpFor(50);
        const ULONGLONG before = GetTickCount64();
        worker.reset();
        return GetTickCount64() - before < 1000;
    };
    EXPECT_TRUE(endsAtOnce(readForEver));
    EXPECT_TRUE(readingEnded) << "broken off";
    EXPECT_TRUE(endsAtOnce([never] { WaitForSingleObject(never, INFINITE); })) << "left behind";
    SetEvent(never);
    pumpFor(50);
    EXPECT_EQ(doneOn.size(), 2u) << "nobody waits for it any more";
    CloseHandle(never);
    CloseHandle(pipe);
}

TEST(HelpViewerTest, ShowsTheTopicInAWindowThatIsClosedAtTheEnd) {
    const auto helpWindow = [] { return FindWindowW(L"HH Parent", L"Hilfe zu Blattwart"); };
    Win32HelpViewer viewer;
    viewer.closeAll();
    viewer.displayTopic(0, "Z:" HELP_FILE, "Tarvix_2.htm");
    EXPECT_TRUE(helpWindow());
    viewer.closeAll();
    EXPECT_FALSE(helpWindow());
}

TEST(ReadingWatch, EscEndsAReadingAlsoWhileACallWaits) {
    Win32ReadingWatch watch({});
    const MSG escape{nullptr, WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
    const MSG other{nullptr, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    for (const MSG& pressed : {escape, other}) {
        watch.noteInput(escape);
        watch.begin(L"");
        EXPECT_TRUE(watch.goOn()) << "pressed before";
        watch.noteInput(pressed);
        EXPECT_EQ(watch.goOn(), pressed.wParam != VK_ESCAPE);
        watch.end();
    }
}

}  // namespace

}  // namespace blattwart::test
