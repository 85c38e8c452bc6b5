#pragma once

#include <string>

namespace blattwart {

enum class MessageIcon { none = 0, critical = 16, question = 32, exclamation = 48, information = 64 };
enum class MessageButtons { ok = 0, yesNoCancel = 3, yesNo = 4, yesNoDefaultNo = 0x104 };
enum class MessageAnswer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// Modal message boxes over the program's own windows.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    virtual MessageAnswer show(const std::wstring& text, const std::wstring& caption, MessageButtons buttons,
                               MessageIcon icon) = 0;

    // What the program says, all of it under its own title and with one button.
    void say(const std::wstring& text);          ///< without an icon
    void inform(const std::wstring& text);       ///< with an i
    void warn(const std::wstring& text);         ///< with an exclamation mark
    void reportError(const std::wstring& text);  ///< with a cross
    /// Asks with Yes and No. Returns whether the answer was Yes.
    bool ask(const std::wstring& question);
    bool ask(const std::wstring& question, const std::wstring& caption);
    /// The same where Yes destroys something: No is the default.
    bool askBeforeLoss(const std::wstring& question);
};

}  // namespace blattwart
