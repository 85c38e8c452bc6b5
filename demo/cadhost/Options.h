#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "demo/host/HostOptions.h"

namespace demo {

/// What the program is started for.
enum class Task { run, enter, wait };

/// The command line:
///
///     cadhost [options] [drawings]
///
///     /register                enters the program in the registry, with the other options given
///     /wait                    ends when clients find a running host, or with 1 after half a minute
///     /Automation, -Embedding  started for a client: invisible
///     /release NN.M            behaves and is entered as that release (before what changes single options)
///     /wide                    a 64-bit host
///     /templates FOLDER        its template folder
///     /novba                   without macros
///     /plottime MS             how long a plot takes
///     /startup MS              how long starting takes
///     /silent                  the user sees no dialog and answers none
///     /do COMMAND              a command (HostControl) carried out at the start, as often as given
struct Options {
    Task task = Task::run;
    bool automation = false;
    bool silent = false;
    DWORD startupTime = 0;
    HostOptions host;
    std::vector<std::wstring> drawings;
    std::vector<std::wstring> commands;
};

/// Throws RuntimeError with a German text for an option that is not known or lacks its argument.
Options readOptions(const std::vector<std::wstring>& words);

/// The words of this program's command line, without the program itself.
std::vector<std::wstring> commandLineWords();

/// Words as one command line that is read back as the same words.
std::wstring joined(const std::vector<std::wstring>& words);

}  // namespace demo
