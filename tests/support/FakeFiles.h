#pragma once

#include <functional>
#include <map>
#include <set>
#include <string_view>

#include "platform/Files.h"
#include "support/GermanLocale.h"

namespace blattwart::test {

/// A file system in memory: Windows paths, looked up without regard to case, listed in the order of adding.
class FakeFiles : public Files {
  public:
    std::wstring folder = L"C:\\Programme\\Blattwart";  ///< the executable's
    /// Asked before each call, by its name; true lets it fail. A failing exists says no.
    std::function<bool(std::wstring_view call)> fails = [](std::wstring_view) { return false; };

    /// Short forms (8.3) of paths that have one.
    std::map<std::wstring, std::wstring> shortPaths;

    /// Adds a file and the folder that it is in.
    void add(const std::wstring& path);
    void addFolder(const std::wstring& path);
    /// Lets a file disappear as if another program deleted it.
    void forget(const std::wstring& path);
    const std::vector<std::wstring>& all() const { return files_; }

    std::wstring applicationFolder() const override { return folder; }
    std::vector<std::wstring> list(const std::wstring& pattern) override;
    bool exists(const std::wstring& path) override;
    std::wstring shortPath(const std::wstring& path) override;
    void remove(const std::wstring& path) override;

  private:
    std::vector<std::wstring>::iterator find(const std::wstring& path);

    GermanLocale locale_;
    std::vector<std::wstring> files_;
    std::set<std::wstring> folders_;  // upper case
};

}  // namespace blattwart::test
