#include "support/User.h"

#include <algorithm>

namespace blattwart::test {

void selectInList(frmMain& form, const std::vector<std::wstring>& keys) {
    selectRows(form.lvListView,
               [&](const ListItem& item) { return std::ranges::count(keys, item.key()) > 0; });
}

void choose(frmMain& form, std::wstring_view item) {
    MenuItem& entry = form.item(item);
    if (entry.enabled()) entry.click();
}

void endEdit(frmMain& form, const std::wstring& text) {
    if (form.tvTreeView.editedNode()) form.tvTreeView.userEndsLabelEdit(&text);
    if (form.lvListView.editedItem()) form.lvListView.userEndsLabelEdit(&text);
}

void leave(FakeDesktop& desktop, frmMain& form) {
    constexpr WindowHandle another = 1;
    desktop.foregroundWindow = another;
    form.ctlTimer_Timer();
}

void leaveAndReturn(FakeDesktop& desktop, frmMain& form) {
    leave(desktop, form);
    desktop.foregroundWindow = form.window().handle();
    form.ctlTimer_Timer();
}

}  // namespace blattwart::test
