#include "Client.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace blattwart {

namespace {

/// Wine fails now and then to make a process (ERROR_INTERNAL_ERROR, once in some thousands): tried three
/// times.
HANDLE startProgram(const char* file, const std::wstring& arguments) {
    DWORD error = 0;
    for (int attempt = 0; attempt < 3; ++attempt) {
        std::wstring command = L"\"" + windowsPath(file) + L"\" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        PROCESS_INFORMATION process{};
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                           &process)) {
            CloseHandle(process.hThread);
            return process.hProcess;
        }
        error = GetLastError();
        Sleep(200);
    }
    throw std::runtime_error(std::string(file) + " does not start: error " + std::to_string(error));
}

}  // namespace

std::wstring windowsPath(const char* file) {
    const std::u8string path(file, file + std::strlen(file));
    return L"Z:" + std::filesystem::path(path).make_preferred().wstring();
}

std::wstring temporaryFile(const std::wstring& name) {
    return (std::filesystem::temp_directory_path() / name).wstring();
}

DWORD runProgram(const char* file, const std::wstring& arguments) {
    HANDLE process = startProgram(file, arguments);
    WaitForSingleObject(process, 20000);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code;
}

RunningProgram::RunningProgram(const char* file, const std::wstring& arguments, const wchar_t* windowClass)
    : windowClass_(windowClass), process_(startProgram(file, arguments)) {
    for (int i = 0; i < 1500 && !FindWindowW(windowClass, nullptr); ++i) Sleep(20);
}

RunningProgram::~RunningProgram() {
    kill();
    CloseHandle(process_);
}

void RunningProgram::kill() {
    TerminateProcess(process_, 5);
    WaitForSingleObject(process_, 5000);
}

void RunningProgram::quit() {
    PostMessageW(FindWindowW(windowClass_, nullptr), WM_CLOSE, 0, 0);
    WaitForSingleObject(process_, 10000);
}

std::map<std::string, int> RunningProgram::counters() const {
    const std::wstring file = temporaryFile(L"counters.txt");
    if (!obey(L"report " + file)) throw std::runtime_error("no report");
    std::ifstream report{std::filesystem::path(file)};
    std::map<std::string, int> result;
    std::string name;
    for (int number = 0; report >> name >> number;) result[name] = number;
    return result;
}

ObjectPtr attach(Client& client, const wchar_t* name) {
    ObjectPtr object;
    for (int i = 0; i < 1500 && !ignoringErrors([&] { object = client.automation.running(name); }); ++i)
        Sleep(20);
    return object;
}

}  // namespace blattwart
