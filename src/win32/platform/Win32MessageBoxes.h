#pragma once

#include "platform/MessageBoxes.h"

namespace blattwart {

class Win32MessageBoxes : public MessageBoxes {
  public:
    MessageAnswer show(const std::wstring& text, const std::wstring& caption, MessageButtons buttons,
                       MessageIcon icon) override;
};

}  // namespace blattwart
