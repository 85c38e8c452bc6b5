#pragma once

#include <functional>

#include "controls/Control.h"
#include "controls/Form.h"
#include "controls/TextBox.h"

namespace blattwart {

/// Place of a dialog's window: the normal one, also while it is maximised.
struct DialogPlacement {
    Placement normal;
    bool maximised = false;
};

/// The window of a modal form, as the form itself sees it.
class DialogWindow {
  public:
    virtual ~DialogWindow() = default;

    /// Moves the focus to the control; the text of a field is selected.
    virtual void setFocus(Control& control) = 0;
    /// Ends the dialog; it returns to whoever showed it when the current event is over.
    virtual void close() = 0;
    /// Has Dialog::step called once, after what waits to be painted and what the user has done meanwhile.
    virtual void stepLater() = 0;
    /// Forgets Esc that were pressed and have not come yet: what they were meant to end has ended.
    virtual void forgetEscape() = 0;
    /// Pops the menu up where the last context-menu event of a list asked for it.
    virtual void popUpMenu(MenuItem& menu) = 0;
    virtual DialogPlacement placement() const = 0;
    /// For a window that can be resized. One that no monitor would show stays over its owner.
    virtual void setPlacement(const DialogPlacement& placement) = 0;
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
    /// The control in which the user begins, and that has the focus when the one that had it is disabled;
    /// null for the first one there is.
    virtual Control* firstField() { return nullptr; }
    /// The label that says what the program waits for meanwhile, in place of its own text; or null.
    virtual Label* workLabel() { return nullptr; }
    /// The button that ends work of the form's which goes on in the host; null for none. It is clicked, or
    /// Esc pressed, while a call waits.
    virtual const Button* interruptButton() const { return nullptr; }
    /// The user has done so. Must not call the host.
    virtual void interrupt() {}
    /// The window stands and will be shown.
    virtual void opened() {}
    /// The window is about to close, because the form wants it or because the program ends. Calls to the
    /// host may not be possible. Must not throw.
    virtual void unload() {}
    /// Goes on with work that goes in steps (see DialogWindow::stepLater), in an event of its own.
    virtual void step() {}
    /// The user asks for help.
    virtual void showHelp() = 0;
    /// What a key does; empty when the control that has the focus (null for none of the form's) is to get it.
    virtual std::function<void()> commandOf(const Shortcut& key, const Control* focused);

  protected:
    DialogWindow& window() { return *window_; }

  private:
    DialogWindow* window_ = nullptr;
};

inline std::function<void()> Dialog::commandOf(const Shortcut&, const Control*) {
    return {};
}

}  // namespace blattwart
