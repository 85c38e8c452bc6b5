#pragma once

#include <optional>
#include <string>

namespace blattwart {

/// The system's common file dialogs over the program's own windows.
class FileDialogs {
  public:
    virtual ~FileDialogs() = default;

    /// Lets the user choose an existing file. `filter` is a description and a pattern with "|" between them
    /// ("Alle Dateien (*.*)|*.*"). The full path; none when the user cancels.
    virtual std::optional<std::wstring> open(const std::wstring& title, const std::wstring& filter) = 0;
};

}  // namespace blattwart
