#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "demo/com/Server.h"
#include "demo/com/ServerWindow.h"
#include "win32/com/ComAutomation.h"
#include "win32/ui/Guard.h"

namespace blattwart {

/// The program's way to other programs, put together as at start-up.
struct Client {
    explicit Client(std::chrono::milliseconds askAfter = std::chrono::seconds(10))
        : hostCaller(gate, askAfter) {}

    demo::Apartment apartment;
    Gate gate;
    HostCaller hostCaller;
    std::vector<std::wstring> reports;
    Guard guard{[this](const std::wstring& text) { reports.push_back(text); }};
    ComAutomation automation{hostCaller};
};

/// A program under test, killed at the end if it still runs.
class RunningProgram {
  public:
    /// `file` as the build names it. Waits until its window is there, and after it the running instance.
    RunningProgram(const char* file, const std::wstring& arguments, const wchar_t* windowClass);
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram();

    void kill();
    /// Has the program end in good order, and waits for that.
    void quit();
    /// Sends the command to the program's window; false when it was not understood.
    bool obey(const std::wstring& command) const { return demo::sendCommand(windowClass_, command); }
    /// What the program counted so far.
    std::map<std::string, int> counters() const;

  private:
    const wchar_t* windowClass_;
    HANDLE process_ = nullptr;
};

/// Runs a program to its end; its exit code.
DWORD runProgram(const char* file, const std::wstring& arguments);
/// The running instance of the name, waiting for it at most half a minute, as on a busy machine.
ObjectPtr attach(Client& client, const wchar_t* name);
std::wstring temporaryFile(const std::wstring& name);
/// A file of the build as Windows names it.
std::wstring windowsPath(const char* file);

}  // namespace blattwart
