#pragma once

#include <functional>

#include "controls/Control.h"
#include "controls/TextBox.h"

namespace blattwart {

/// The window of a modal form, as the form itself sees it.
class DialogWindow {
  public:
    virtual ~DialogWindow() = default;

    /// Moves the focus to the field and selects its text.
    virtual void setFocus(TextBox& field) = 0;
    /// Ends the dialog; it returns to whoever showed it when the current event is over.
    virtual void close() = 0;
};

/// What modal forms have in common.
class Dialog {
  public:
    Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog() = default;

    /// The window that shows the form; set while it does.
    void setWindow(DialogWindow* window) { window_ = window; }
    /// The field in which the user begins; null for the first one there is.
    virtual TextBox* firstField() { return nullptr; }
    /// The user asks for help.
    virtual void showHelp() = 0;

  protected:
    DialogWindow& window() { return *window_; }

  private:
    DialogWindow* window_ = nullptr;
};

}  // namespace blattwart
