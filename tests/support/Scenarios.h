#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/frmMain.h"

namespace blattwart::test {

/// A file that the user has; the drawings are open, the template is not.
struct SampleDrawing {
    std::wstring folder;
    std::wstring name;
    std::vector<std::wstring> layouts;

    std::wstring file() const { return folder + L"\\" + name; }
    bool isTemplate() const { return name.ends_with(L".dwt"); }
};

/// With them open in this order the tree of a program just started is
///
///     A Geladene Zeichnungen     Z1 Haus.dwg (L2 Blatt 1)
///                                Z3 Plan.dwg, active (L4 Blatt 1, active; L5 Blatt 2; L6 Schnitt)
///     B Bibliothek               D7 Plan A3.dwt
const std::vector<SampleDrawing>& sampleDrawings();

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

/// A place of every kind, on the sample drawings.
const std::vector<Place>& places();
/// The first of them at this node.
const Place& placeAt(std::wstring_view node);
/// The user goes there, by a click and a selection.
void go(frmMain& form, const Place& place);

Action menuItem(const std::wstring& item);

/// Every command of the table that does something, by the first of its menu item, context-menu item and
/// toolbar button, and the events that are no commands.
std::vector<Action> actions();
/// One of them.
Action actionNamed(std::wstring_view name);
/// The user does it; a label that he edits then becomes "Neu".
void perform(frmMain& form, const Action& action);

}  // namespace blattwart::test
