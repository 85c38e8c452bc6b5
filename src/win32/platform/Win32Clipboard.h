#pragma once

#include "platform/Clipboard.h"

namespace blattwart {

class Win32Clipboard : public Clipboard {
  public:
    void put(const std::wstring& text, const std::string& html) override;
};

}  // namespace blattwart
