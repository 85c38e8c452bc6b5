#include "win32/platform/Win32Process.h"

#include <windows.h>

#include <sddl.h>
#include <shellapi.h>
#include <shlwapi.h>

#include <vector>

#include "win32/base/SystemError.h"
#include "win32/platform/Win32Files.h"

namespace blattwart {

namespace {

/// The account's identifier as text; several accounts can work in one session.
std::wstring accountId() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return {};
    const Handle token(opened);
    DWORD size = 0;
    GetTokenInformation(opened, TokenUser, nullptr, 0, &size);
    std::vector<BYTE> buffer(size);
    if (size == 0 || !GetTokenInformation(opened, TokenUser, buffer.data(), size, &size)) return {};
    wchar_t* text = nullptr;
    if (!ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid, &text)) return {};
    const std::unique_ptr<void, LocalDeleter> owner(text);
    return text;
}

struct CommandLine {
    std::wstring program;
    std::wstring arguments;
};

/// Splits behind a quoted program, a program whose path with blanks is all there is, or the first blank.
CommandLine split(const std::wstring& text) {
    if (text.starts_with(L'"')) {
        const auto end = text.find(L'"', 1);
        if (end == std::wstring::npos) return {text.substr(1), {}};
        const auto rest = text.find_first_not_of(L' ', end + 1);
        return {text.substr(1, end - 1), rest == std::wstring::npos ? L"" : text.substr(rest)};
    }
    const auto blank = text.find(L' ');
    if (blank == std::wstring::npos || Win32Files().exists(text)) return {text, {}};
    return {text.substr(0, blank), text.substr(blank + 1)};
}

/// A program without a full path is one of the Windows folder, never of the working folder.
std::wstring withWindowsFolder(const std::wstring& program) {
    if (!PathIsRelativeW(program.c_str())) return program;
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetWindowsDirectoryW(folder.data(), MAX_PATH));
    return folder + L"\\" + program;
}

/// Arguments that name a folder or file as a whole are one argument: without quotation marks a program would
/// take them apart at a blank, Explorer at a comma too.
std::wstring quoted(std::wstring arguments) {
    const bool apart = arguments.find_first_of(L" ,;=") != std::wstring::npos;
    if (!apart || GetFileAttributesW(arguments.c_str()) == INVALID_FILE_ATTRIBUTES) return arguments;
    // A backslash before the closing mark would make it part of the name.
    while (arguments.ends_with(L'\\')) arguments.pop_back();
    return L'"' + arguments + L'"';
}

}  // namespace

bool Win32Process::previousInstance() {
    if (instanceMark_) return false;
    instanceMark_.reset(CreateMutexW(nullptr, FALSE, (L"Local\\Blattwart-" + accountId()).c_str()));
    const DWORD result = GetLastError();
    if (result != ERROR_ALREADY_EXISTS && result != ERROR_ACCESS_DENIED) return false;
    instanceMark_.reset();
    return true;
}

void Win32Process::start(const std::wstring& commandLine) {
    const CommandLine parts = split(commandLine);
    const std::wstring program = withWindowsFolder(parts.program);
    const std::wstring arguments = quoted(parts.arguments);
    SHELLEXECUTEINFOW execution{};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    execution.lpFile = program.c_str();
    execution.lpParameters = arguments.c_str();
    execution.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&execution)) throwSystemError();
}

void Win32Process::end() {
    ended_ = true;
    PostQuitMessage(0);
}

}  // namespace blattwart
