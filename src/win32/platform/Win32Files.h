#pragma once

#include <map>

#include "platform/Files.h"

namespace blattwart {

struct AwaitedPath;

class Win32Files : public Files {
  public:
    std::wstring applicationFolder() const override;
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
    std::map<std::wstring, std::shared_ptr<AwaitedPath>> awaited_;
};

}  // namespace blattwart
