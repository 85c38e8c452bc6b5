#pragma once

#include <string>

namespace blattwart {

/// This program as a process, and the starting of others.
class Process {
  public:
    virtual ~Process() = default;

    /// True when another instance of this program already runs for the same user.
    virtual bool previousInstance() = 0;
    /// Starts a program in a normal window with the focus; one without a full path is looked for in the
    /// Windows folder only. An argument that is a whole path needs no quotation marks. Throws RuntimeError
    /// when that fails.
    virtual void start(const std::wstring& commandLine) = 0;
    /// Ends the program at once; nothing is unloaded or saved. Returns; the program ends with the current
    /// event.
    virtual void end() = 0;
};

}  // namespace blattwart
