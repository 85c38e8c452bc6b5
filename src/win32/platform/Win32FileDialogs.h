#pragma once

#include "platform/FileDialogs.h"

namespace blattwart {

class Win32FileDialogs : public FileDialogs {
  public:
    std::optional<std::wstring> open(const std::wstring& title, const std::wstring& filter) override;
};

}  // namespace blattwart
