#pragma once

#include <functional>
#include <map>
#include <set>
#include <string_view>

#include "platform/Files.h"
#include "support/GermanLocale.h"

namespace blattwart::test {

/// Bytes in memory as an open file. Knows how many of them were read.
class FakeFileReader : public FileReader {
  public:
    explicit FakeFileReader(std::vector<std::uint8_t> bytes, std::uint64_t lastWritten = 0)
        : bytes_(std::move(bytes)), lastWritten_(lastWritten) {}

    std::size_t bytesRead = 0;

    std::uint64_t size() const override { return bytes_.size(); }
    std::uint64_t lastWritten() const override { return lastWritten_; }
    std::vector<std::uint8_t> read(std::uint64_t offset, std::size_t count) override;

  private:
    std::vector<std::uint8_t> bytes_;
    std::uint64_t lastWritten_;
};

/// A file system in memory: Windows paths, looked up without regard to case, listed in the order of adding.
class FakeFiles : public Files {
  public:
    std::wstring folder = L"C:\\Programme\\Blattwart";  ///< the executable's
    /// Asked before each call, by its name; true lets it fail. A failing exists says no.
    std::function<bool(std::wstring_view call)> fails = [](std::wstring_view) { return false; };

    /// Short forms (8.3) of paths that have one.
    std::map<std::wstring, std::wstring> shortPaths;
    /// Paths on a drive that does not answer.
    std::set<std::wstring> silentPaths;

    /// Adds a file and the folder that it is in.
    void add(const std::wstring& path);
    void addFolder(const std::wstring& path);
    /// Gives a file its bytes; a file without any is empty.
    void fill(const std::wstring& path, std::vector<std::uint8_t> bytes);
    /// Lets a file disappear as if another program deleted it.
    void forget(const std::wstring& path);
    /// The paths of all files.
    std::vector<std::wstring> all() const;

    std::wstring applicationFolder() const override { return folder; }
    std::vector<std::wstring> list(const std::wstring& pattern) override;
    bool exists(const std::wstring& path) override;
    std::vector<std::wstring> silent(const std::vector<std::wstring>& paths) override;
    std::wstring shortPath(const std::wstring& path) override;
    std::unique_ptr<FileReader> open(const std::wstring& path) override;
    bool folderExists(const std::wstring& path) override;
    void rename(const std::wstring& path, const std::wstring& newPath) override;
    void writeAtomically(const std::wstring& path, const std::string& bytes) override;
    void remove(const std::wstring& path) override;

  private:
    struct File {
        std::wstring path;
        std::vector<std::uint8_t> bytes;
        std::uint64_t written = 0;
    };

    /// Null when there is no such file.
    File* find(const std::wstring& path);
    /// Throws when there is no such file, or the call is to fail.
    File& existing(const std::wstring& path, std::wstring_view call);

    GermanLocale locale_;
    std::vector<File> files_;
    std::set<std::wstring> folders_;  // upper case
    std::uint64_t writes_ = 0;
};

}  // namespace blattwart::test
