#pragma once

#include "platform/Files.h"

namespace blattwart {

class Win32Files : public Files {
  public:
    std::wstring applicationFolder() const override;
    std::vector<std::wstring> list(const std::wstring& pattern) override;
    bool exists(const std::wstring& path) override;
    std::unique_ptr<FileReader> open(const std::wstring& path) override;
    void remove(const std::wstring& path) override;
};

}  // namespace blattwart
