#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/frmMain.h"
#include "support/FakeDesktop.h"

namespace blattwart::test {

// What the user does in the main window, be it real or not.

/// He selects the rows that are wanted, the first of them with the focus. Returns their number.
template <class Predicate>
std::size_t selectRows(ListView& list, const Predicate& wanted) {
    std::vector<ListItem*> items;
    for (int row = 0; row < list.count(); ++row)
        if (wanted(list.row(row))) items.push_back(&list.row(row));
    list.userSelects(items, items.empty() ? nullptr : items.front());
    return items.size();
}

/// He selects the list's rows with these keys.
void selectInList(frmMain& form, const std::vector<std::wstring>& keys);

/// He chooses a menu item, if it is enabled.
void choose(frmMain& form, std::wstring_view item);

/// He types this into the label that is edited, if there is one, and presses Return.
void endEdit(frmMain& form, const std::wstring& text);

/// He goes to another program; the watchdog sees it.
void leave(FakeDesktop& desktop, frmMain& form);
void leaveAndReturn(FakeDesktop& desktop, frmMain& form);

}  // namespace blattwart::test
