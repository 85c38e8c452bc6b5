#pragma once

#include <span>
#include <string>

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/MessageBoxes.h"

namespace blattwart {

/// The program "Datenbank anlegen": makes the definition database where it is missing.
class DatabaseMaker {
  public:
    /// `usualFile` is where the main program looks for its database.
    DatabaseMaker(Automation& automation, Files& files, MessageBoxes& messages, std::wstring usualFile)
        : automation_(automation), files_(files), messages_(messages), usualFile_(std::move(usualFile)) {}

    /// Runs the program with the words of its command line: [/still] [FILE], the usual file when none is
    /// given. Tells the user how it ended, unless told to be silent. Returns the exit code: 0 when the
    /// database is there, made or found; 1 when it cannot be made; 2 when the words are not understood.
    int run(std::span<const std::wstring> words);

  private:
    int makeAndTell(const std::wstring& file, bool silent);
    /// Makes the database. Returns false when the file exists, which is not touched then. Throws RuntimeError
    /// when it cannot be made; no file is left then.
    bool make(const std::wstring& file);
    void tell(const std::wstring& text, MessageIcon icon);

    Automation& automation_;
    Files& files_;
    MessageBoxes& messages_;
    std::wstring usualFile_;
};

}  // namespace blattwart
