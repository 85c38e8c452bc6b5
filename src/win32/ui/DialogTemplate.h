#pragma once

#include <windows.h>

#include <vector>

namespace blattwart {

/// A dialog template of the program's resources with the user's font for messages in place of its own; all
/// sizes follow, as they are in dialog units. Throws RuntimeError when there is no such template.
class DialogTemplate {
  public:
    explicit DialogTemplate(int id);

    /// Of the client area, dialog units.
    SIZE size() const { return {words_[widthWord], words_[widthWord + 1]}; }
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    static constexpr std::size_t widthWord = 11;  // of an extended template; the height follows

    std::vector<WORD> words_;
};

}  // namespace blattwart
