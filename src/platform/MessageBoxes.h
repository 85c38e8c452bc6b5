#pragma once

#include <string>

namespace blattwart {

enum class MessageIcon { none = 0, critical = 16, question = 32, exclamation = 48, information = 64 };
enum class MessageButtons { ok = 0, yesNo = 4 };
enum class MessageAnswer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// Modal message boxes over the program's own windows.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    virtual MessageAnswer show(const std::wstring& text, const std::wstring& caption, MessageButtons buttons,
                               MessageIcon icon) = 0;
};

}  // namespace blattwart
