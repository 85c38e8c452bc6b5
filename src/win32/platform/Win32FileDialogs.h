#pragma once

#include "platform/FileDialogs.h"

namespace blattwart {

class Win32FileDialogs : public FileDialogs {
  public:
    std::optional<std::wstring> open(const std::wstring& title, const std::wstring& filter) override;
    std::optional<std::wstring> save(const std::wstring& title, const std::wstring& filter,
                                     const std::wstring& name) override;
    std::optional<std::wstring> folder(const std::wstring& title, const std::wstring& folder) override;
};

}  // namespace blattwart
