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
        /// The user leaves the field; returns true to keep him in it.
        std::function<bool()> validate;
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

    /// The caption with its access key; "" for the one that the window was made with.
    const std::wstring& text() const { return text_; }
    void setText(std::wstring text) { change(text_, std::move(text)); }

    /// The window (or a test) reports a click; nothing happens when the button is disabled.
    void userClicks() {
        if (enabled() && events.click) events.click();
    }

  private:
    std::wstring text_;
};

/// A box that the user ticks.
class CheckBox : public Control {
  public:
    struct Events {
        std::function<void()> click;  ///< the user has changed it
    } events;

    bool checked() const { return checked_; }
    void setChecked(bool checked) { change(checked_, checked); }

    /// The window (or a test) reports a click, which changes the box; nothing happens when it is disabled.
    void userClicks() {
        if (!enabled()) return;
        setChecked(!checked_);
        if (events.click) events.click();
    }

  private:
    bool checked_ = false;
};

}  // namespace blattwart
