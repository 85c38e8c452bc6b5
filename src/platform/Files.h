#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace blattwart {

/// An open file, read at any place.
class FileReader {
  public:
    virtual ~FileReader() = default;
    /// Bytes.
    virtual std::uint64_t size() const = 0;
    /// When the file was last written, in the file system's own counting; only good for comparing.
    virtual std::uint64_t lastWritten() const = 0;
    /// The bytes from `offset` on: `count` of them, fewer only at the end of the file. Throws RuntimeError.
    virtual std::vector<std::uint8_t> read(std::uint64_t offset, std::size_t count) = 0;
};

class Files {
  public:
    virtual ~Files() = default;

    /// The folder of the executable, without a backslash at its end.
    virtual std::wstring applicationFolder() const = 0;
    /// Names of the normal files (no folders, no hidden or system files) that match the pattern, in the order
    /// of the file system. Throws RuntimeError when the folder is missing or unreadable.
    virtual std::vector<std::wstring> list(const std::wstring& pattern) = 0;
    virtual bool exists(const std::wstring& path) = 0;
    /// Those of the paths of which the file system has not told within a second whether they are there, as of
    /// a share that has gone; not "". A path is not asked for again while its answer is still missing: the
    /// second counts from the first asking.
    virtual std::vector<std::wstring> silent(const std::vector<std::wstring>& paths) = 0;
    /// The path in its short form (8.3), which holds no blanks; "" where there is none: the volume makes
    /// none, or the path does not exist.
    virtual std::wstring shortPath(const std::wstring& path) = 0;
    /// Opens a file for reading; others may go on reading, writing, renaming and deleting it. Null for a file
    /// whose bytes would have to be fetched from elsewhere first (archived, in a cloud). Throws RuntimeError.
    /// May be called on any thread.
    virtual std::unique_ptr<FileReader> open(const std::wstring& path) = 0;
    virtual bool folderExists(const std::wstring& path) = 0;
    /// Gives a file another name in its folder. Throws RuntimeError when another has that name, or when a
    /// program has the file open.
    virtual void rename(const std::wstring& path, const std::wstring& newPath) = 0;
    /// Writes a whole file: beside it at first, then in its place, so that there is always the old one or the
    /// new one. Throws RuntimeError with the system's reason; the old one is untouched then.
    virtual void writeAtomically(const std::wstring& path, const std::string& bytes) = 0;
    /// Deletes a file. Throws RuntimeError when that fails.
    virtual void remove(const std::wstring& path) = 0;
};

}  // namespace blattwart
