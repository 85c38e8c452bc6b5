#pragma once

#include <functional>
#include <string>

#include "controls/Control.h"

namespace blattwart {

/// A text field. `changed` also tells changes of the text.
class TextBox : public Control {
  public:
    struct Events {
        std::function<void()> change;
    } events;

    const std::wstring& text() const { return text_; }
    void setText(std::wstring text) {
        if (text == text_) return;
        change(text_, std::move(text));
        if (events.change) events.change();
    }

  private:
    std::wstring text_;
};

class Button : public Control {
  public:
    struct Events {
        std::function<void()> click;
    } events;

    /// The window (or a test) reports a click; nothing happens when the button is disabled.
    void userClicks() {
        if (enabled() && events.click) events.click();
    }
};

}  // namespace blattwart
