#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/frmMain.h"

namespace blattwart::test {

/// What is selected when an operation begins.
struct Place {
    std::wstring node;
    std::vector<std::wstring> items;  ///< of the list
    bool attached = true;             ///< false: the program has noticed that the host is gone
};

/// Something that the user does in the main window: a command or another event.
struct Action {
    std::wstring name;
    std::function<void(frmMain&)> run;
    std::function<bool(frmMain&)> offered;  ///< whether he can do it at the present place
};

/// A place of every kind, on the drawings of `Operations`.
const std::vector<Place>& places();

/// Every command of the table that does something, by the first of its menu item, context-menu item and
/// toolbar button, and the events that are no commands.
std::vector<Action> actions();

}  // namespace blattwart::test
