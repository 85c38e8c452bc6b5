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
    /// Lets the user choose where a file is to be written; one that exists he has been asked about. `filter`
    /// may hold several descriptions and patterns. The extension of the proposed `name` is added to a name
    /// typed without one.
    virtual std::optional<std::wstring> save(const std::wstring& title, const std::wstring& filter,
                                             const std::wstring& name) = 0;
    /// Lets the user choose an existing folder, beginning in `folder` if there is such a one.
    virtual std::optional<std::wstring> folder(const std::wstring& title, const std::wstring& folder) = 0;
};

}  // namespace blattwart
