#pragma once

#include <string>
#include <vector>

namespace blattwart {

class Files {
  public:
    virtual ~Files() = default;

    /// The folder of the executable, without a backslash at its end.
    virtual std::wstring applicationFolder() const = 0;
    /// Names of the normal files (no folders, no hidden or system files) that match the pattern, in the order
    /// of the file system. Throws RuntimeError when the folder is missing or unreadable.
    virtual std::vector<std::wstring> list(const std::wstring& pattern) = 0;
    virtual bool exists(const std::wstring& path) = 0;
    /// The path in its short form (8.3), which holds no blanks; "" where there is none: the volume makes
    /// none, or the path does not exist.
    virtual std::wstring shortPath(const std::wstring& path) = 0;
    /// Deletes a file. Throws RuntimeError when that fails.
    virtual void remove(const std::wstring& path) = 0;
};

}  // namespace blattwart
