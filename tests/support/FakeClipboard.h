#pragma once

#include "platform/Clipboard.h"
#include "platform/RuntimeError.h"

namespace blattwart::test {

class FakeClipboard : public Clipboard {
  public:
    std::wstring text;
    std::string html;
    bool held = false;  ///< by another program

    void put(const std::wstring& newText, const std::string& newHtml) override {
        if (held) throw RuntimeError(errorNumber::invalidCall, L"Zugriff verweigert");
        text = newText;
        html = newHtml;
    }
};

}  // namespace blattwart::test
