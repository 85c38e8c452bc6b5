#pragma once

#include <string>

namespace blattwart {

class Clipboard {
  public:
    virtual ~Clipboard() = default;

    /// Replaces what the clipboard holds by a text and the same as a table (the clipboard's "HTML Format").
    /// Throws RuntimeError when another program does not let go of it.
    virtual void put(const std::wstring& text, const std::string& html) = 0;
};

}  // namespace blattwart
