#pragma once

#include <filesystem>
#include <string>

#include "demo/dxf/Drawing.h"

namespace demo {

/// The files that the host sees under Windows paths ("C:\Projekte\Plan.dwg"). On Windows they are the files
/// of that path; elsewhere those below a root folder ("root/C/Projekte/Plan.dwg"), without regard to case.
/// Failures throw RuntimeError as Drawing does.
class Disk {
  public:
    /// The system's own files; outside Windows an empty disk on which nothing can be written.
    Disk() = default;
    explicit Disk(std::filesystem::path root) : root_(std::move(root)) {}

    /// Where a file or folder is in reality. Parts that do not exist are taken as they are written.
    std::filesystem::path realPath(const std::wstring& path) const;
    bool exists(const std::wstring& path) const;
    bool isReadOnly(const std::wstring& path) const;
    /// Makes a folder and those above it.
    void makeFolder(const std::wstring& path) const;

    Drawing load(const std::wstring& path) const;
    /// Replaces an existing file. The folder must be there.
    void save(const Drawing& drawing, const std::wstring& path) const;

    /// Writes a file that does not exist yet. Returns whether it did.
    bool writeNew(const std::wstring& path, const std::string& bytes) const;

  private:
    std::filesystem::path root_;
};

/// Parts of a Windows path: what stands before and behind the last backslash.
std::wstring folderOf(const std::wstring& path);
std::wstring fileNameOf(const std::wstring& path);
bool isAbsolute(const std::wstring& path);

}  // namespace demo
