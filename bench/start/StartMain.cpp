// From the start of the process to the visible window, under Wine, in which the host's and the database's
// parts are told apart:
//
// - the host runs already, without drawings; its part is the messages that came in, each an empty call;
// - the database's part is what the same readings take in another fresh process.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <vector>

#include "com/Client.h"
#include "data/basDatenbank.h"
#include "mdb/Database.h"
#include "mdb/DefinitionTables.h"
#include "support/TestPlatform.h"
#include "win32/ComError.h"

namespace blattwart::bench {

namespace {

constexpr const wchar_t* hostName = L"AutoCAD.Application.18";
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
    demo::mdb::writeDatabase(databaseFile(), demo::mdb::startTables());
    HMODULE library = LoadLibraryW(windowsPath(ADO_LIBRARY).c_str());
    throwIfFailed(
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(GetProcAddress(library, "DllRegisterServer"))());
    const std::wstring file = databaseFile();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, registryKey, L"DefDB", REG_SZ, file.c_str(),
                    static_cast<DWORD>((file.size() + 1) * sizeof(wchar_t)));
}

/// The readings that the program does before its window is visible; microseconds.
int readDatabase() {
    Client client;
    test::TestPlatform world(client.automation);
    const std::wstring file = databaseFile();
    world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB",
                             std::string(file.begin(), file.end()));
    const basRegistry registry(world.registry, world.locale, world.files);
    basDatenbank database(world.platform, registry, [] { return std::wstring(); });
    const Clock::time_point start = Clock::now();
    database.LoadTypes();
    database.LoadTypes();
    database.LoadBlocks();
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

double medianOf(const std::function<double()>& measure) {
    constexpr int times = 9;
    std::vector<double> results;
    for (int i = 0; i < times; ++i) results.push_back(measure());
    std::ranges::sort(results);
    return results[times / 2];
}

double emptyCall() {
    Client client;
    const ObjectPtr application = attach(client, hostName);
    application->get({L"Application", L"Visible"});
    return medianOf([&] {
        const Clock::time_point start = Clock::now();
        for (int i = 0; i < 20; ++i) application->get({L"Application", L"Visible"});
        return millisecondsSince(start) / 20;
    });
}

int messagesOf(const RunningProgram& host) {
    std::map<std::string, int> counters = host.counters();
    return counters["calls"] + counters["idLookups"] + counters["nexts"] + counters["released"];
}

void measureStart(const std::wstring& self) {
    setUpDatabase();
    runProgram(CADHOST, L"/register /silent");
    std::filesystem::create_directories(L"C:\\Vorlagen");
    std::ofstream(L"C:\\Vorlagen\\Plan.dwt") << "-";
    const RunningProgram host(CADHOST, L"/silent /do \"add C:\\Projekte|Plan.dwg|Blatt 1\"",
                              L"CadHostWindow");
    const double call = emptyCall();
    int messages = 0;
    const double total = medianOf([&] {
        const int before = messagesOf(host);
        const double taken =
            timeToWindow(L"\"" + windowsPath(BLATTWART) + L"\"", L"BlattwartMain", L"Blattwart");
        messages = messagesOf(host) - before;
        return taken;
    });
    const double database = medianOf([&] { return Process(self + L" /database").wait() / microseconds; });
    const double empty = medianOf([&] { return timeToWindow(self + L" /empty", emptyWindow, nullptr); });
    const double own = total - messages * call - database;
    std::printf(
        "start to visible window %.0f ms: host %.0f (%d messages of %.3f), database %.0f, program %.0f "
        "(wanted: under 150)\nan empty program with a window: %.0f ms\n",
        total, messages * call, messages, call, database, own, empty);
}

}  // namespace

}  // namespace blattwart::bench

int main(int count, char** words) {
    using namespace blattwart::bench;
    const std::string_view task = count > 1 ? words[1] : "";
    if (task == "/database") return readDatabase();
    if (task == "/empty") return showEmptyWindow();
    measureStart(L"\"" + std::filesystem::path(words[0]).wstring() + L"\"");
    return 0;
}
