// From the start of the process to the visible window, under Wine. The host runs already. Its and the
// database's parts are what another fresh process takes that reads the same but has no window.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "com/Client.h"
#include "program/FakeWindow.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"
#include "win32/com/ComError.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* registryKey = L"SOFTWARE\\Ormeda\\Tarvix 2.1";
constexpr const wchar_t* emptyWindow = L"BlattwartBenchEmpty";
constexpr double microseconds = 1000;

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::wstring databaseFile() {
    return temporaryFile(L"Tarvix.mdb");
}

void setUpDatabase() {
    HMODULE library = LoadLibraryW(windowsPath(ADO_LIBRARY).c_str());
    throwIfFailed(
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(GetProcAddress(library, "DllRegisterServer"))());
    const std::wstring file = databaseFile();
    if (runProgram(DATABASE_MAKER, L"/still \"" + file + L"\"") != 0)
        throw std::runtime_error("the database cannot be made");
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, registryKey, L"DefDB", REG_SZ, file.c_str(),
                    static_cast<DWORD>((file.size() + 1) * sizeof(wchar_t)));
}

/// Does all that the program does at its start, with a window that is none; microseconds.
int startWithoutWindow() {
    Client client;
    test::TestPlatform world(client.automation);
    test::FakePresenter presenter(world.desktop);
    const std::wstring file = databaseFile();
    world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                             std::string(file.begin(), file.end()));
    world.files.addFolder(L"C:\\Vorlagen");
    basMain program(world.platform, presenter);
    const Clock::time_point start = Clock::now();
    if (!program.Main()) throw std::runtime_error("the program does not start");
    return static_cast<int>(millisecondsSince(start) * microseconds);
}

/// The least program with a window.
int showEmptyWindow() {
    WNDCLASSW description{};
    description.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_DESTROY) PostQuitMessage(0);
        return DefWindowProcW(window, message, wParam, lParam);
    };
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = emptyWindow;
    RegisterClassW(&description);
    CreateWindowExW(0, emptyWindow, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 400, nullptr, nullptr,
                    description.hInstance, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

/// Starts a program.
class Process {
  public:
    explicit Process(std::wstring command) {
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                            &information_))
            throw std::runtime_error("a program does not start");
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process() {
        CloseHandle(information_.hThread);
        CloseHandle(information_.hProcess);
    }

    DWORD wait() const {
        WaitForSingleObject(information_.hProcess, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(information_.hProcess, &code);
        return code;
    }

  private:
    PROCESS_INFORMATION information_{};
};

/// Milliseconds until the program's window is visible; the program is ended then.
double timeToWindow(const std::wstring& command, const wchar_t* windowClass, const wchar_t* title) {
    const Clock::time_point start = Clock::now();
    const Process process(command);
    HWND window = nullptr;
    while (!(window = FindWindowW(windowClass, title)) || !IsWindowVisible(window)) {
        if (millisecondsSince(start) > 20000) throw std::runtime_error("the window does not come");
        Sleep(1);
    }
    const double taken = millisecondsSince(start);
    PostMessageW(window, WM_CLOSE, 0, 0);
    process.wait();
    return taken;
}

/// The quickest of several: other work on the machine disturbs it least.
double quickestOf(const std::function<double()>& measure) {
    constexpr int times = 9;
    double quickest = measure();
    for (int i = 1; i < times; ++i) quickest = std::min(quickest, measure());
    return quickest;
}

void measureStart(const std::wstring& self) {
    setUpDatabase();
    runProgram(CADHOST, L"/register /silent");
    std::filesystem::create_directories(L"C:\\Vorlagen");
    std::ofstream(L"C:\\Vorlagen\\Plan.dwt") << "-";
    const RunningProgram host(CADHOST, L"/silent /do \"add C:\\Projekte|Plan.dwg|Blatt 1\"",
                              L"CadHostWindow");
    const double total = quickestOf(
        [] { return timeToWindow(L"\"" + windowsPath(BLATTWART) + L"\"", L"BlattwartMain", L"Blattwart"); });
    const double readings = quickestOf([&] { return Process(self + L" /readings").wait() / microseconds; });
    const double empty = quickestOf([&] { return timeToWindow(self + L" /empty", emptyWindow, nullptr); });
    std::printf(
        "start to visible window %.0f ms: host and database %.0f, program %.0f (wanted: under 150)\n"
        "an empty program with a window: %.0f ms\n",
        total, readings, total - readings, empty);
}

}  // namespace

}  // namespace blattwart::bench

int main(int count, char** words) {
    using namespace blattwart::bench;
    try {
        const std::string_view task = count > 1 ? words[1] : "";
        if (task == "/readings") return startWithoutWindow();
        if (task == "/empty") return showEmptyWindow();
        measureStart(L"\"" + std::filesystem::path(words[0]).wstring() + L"\"");
        return 0;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 2;
    }
}
