#include "win32/ui/ListWindow.h"

#include <algorithm>

#include "win32/base/Scope.h"

namespace blattwart {

namespace {

constexpr DWORD listStyle = WS_VISIBLE | WS_TABSTOP | LVS_OWNERDATA | LVS_REPORT | LVS_SHOWSELALWAYS |
                            LVS_SHAREIMAGELISTS | LVS_EDITLABELS | LVS_AUTOARRANGE | WS_CLIPCHILDREN;
constexpr DWORD extendedListStyle =
    LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;

DWORD nativeView(ListViewMode mode) {
    switch (mode) {
        case ListViewMode::largeIcons:
            return LV_VIEW_ICON;
        case ListViewMode::smallIcons:
            return LV_VIEW_SMALLICON;
        case ListViewMode::list:
            return LV_VIEW_LIST;
        default:
            return LV_VIEW_DETAILS;
    }
}

bool startsWith(const std::wstring& text, const wchar_t* start) {
    const int length = lstrlenW(start);
    if (static_cast<int>(text.size()) < length) return false;
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.c_str(), length, start, length) ==
           CSTR_EQUAL;
}

}  // namespace

ListWindow::ListWindow(HWND parent, ListView& list, EventGate& gate)
    : ControlWindow(parent, list, WC_LISTVIEWW, listStyle, WS_EX_CLIENTEDGE),
      list_(list),
      gate_(gate),
      labelEdit_(gate, [this](const std::wstring* text) { list_.userEndsLabelEdit(text); }),
      header_(handle(), list, gate) {
    ListView_SetExtendedListViewStyle(handle(), extendedListStyle);
    columnsChanged();
    modeChanged();
    rowsChanged();
    list_.setListener(this);
}

ListWindow::~ListWindow() {
    list_.setTopRow(ListView_GetTopIndex(handle()));
    list_.setListener(nullptr);
}

void ListWindow::setImages(HIMAGELIST large, HIMAGELIST small) const {
    ListView_SetImageList(handle(), large, LVSIL_NORMAL);
    ListView_SetImageList(handle(), small, LVSIL_SMALL);
}

void ListWindow::setFonts(HFONT normal, HFONT bold, int dpi) {
    boldFont_ = bold;
    setFont(normal);
    header_.setDpi(dpi);
    fitListColumns();
}

void ListWindow::rowsChanged() {
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    {
        const ScopedFlag showing(showing_);
        ListView_SetItemCountEx(handle(), list_.count(), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    }
    showSelection();
    fitListColumns();
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

void ListWindow::rowChanged(int row) {
    ListView_RedrawItems(handle(), row, row);
}

void ListWindow::selectionChanged() {
    showSelection();
}

void ListWindow::columnsChanged() {
    header_.showColumns();
}

void ListWindow::modeChanged() {
    const DWORD view = nativeView(list_.mode());
    if (SendMessageW(handle(), LVM_GETVIEW, 0, 0) == static_cast<LRESULT>(view)) return;
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(handle(), LVM_SETVIEW, view, 0);
    header_.showColumns();
    fitListColumns();
    if (view == LV_VIEW_ICON || view == LV_VIEW_SMALLICON) ListView_Arrange(handle(), LVA_DEFAULT);
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

void ListWindow::rowWanted(int row) {
    ListView_EnsureVisible(handle(), row, FALSE);
}

/// The row at the top is the one that was when another window showed the list.
void ListWindow::showTopRow() const {
    ListView_EnsureVisible(handle(), list_.count() - 1, FALSE);
    ListView_EnsureVisible(handle(), list_.topRow(), FALSE);
}

void ListWindow::showSelection() {
    const ScopedFlag showing(showing_);
    const ListItem* focused = list_.focused();
    for (int row = 0; row < list_.count(); ++row) {
        const ListItem& item = list_.row(row);
        const UINT wanted = (item.selected() ? LVIS_SELECTED : 0u) | (&item == focused ? LVIS_FOCUSED : 0u);
        constexpr UINT mask = LVIS_SELECTED | LVIS_FOCUSED;
        if (ListView_GetItemState(handle(), row, mask) != wanted) {
            ListView_SetItemState(handle(), row, wanted, mask);
        }
    }
}

/// In the list view of an owner-data list the program says how wide the columns are.
void ListWindow::fitListColumns() {
    if (list_.mode() != ListViewMode::list) return;
    const HDC screen = GetDC(handle());
    const HGDIOBJ previous = SelectObject(screen, boldFont_ ? boldFont_ : GetStockObject(DEFAULT_GUI_FONT));
    LONG widest = 0;
    for (int row = 0; row < list_.count(); ++row) {
        const std::wstring& text = list_.row(row).text();
        SIZE size{};
        GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
        widest = std::max(widest, size.cx);
    }
    SelectObject(screen, previous);
    ReleaseDC(handle(), screen);
    int icon = 0;
    int height = 0;
    ImageList_GetIconSize(ListView_GetImageList(handle(), LVSIL_SMALL), &icon, &height);
    ListView_SetColumnWidth(handle(), 0, static_cast<int>(widest) + 2 * icon);
}

void ListWindow::labelEditStarted(const ListItem& item) {
    SetFocus(handle());
    const int row = list_.rowOf(item);
    ListView_EnsureVisible(handle(), row, FALSE);
    labelEdit_.start(
        [&] {
            return reinterpret_cast<HWND>(
                SendMessageW(handle(), LVM_EDITLABELW, static_cast<WPARAM>(row), 0));
        },
        item.text());
}

void ListWindow::labelEditCancelled() {
    labelEdit_.cancel([this] { SendMessageW(handle(), LVM_CANCELEDITLABEL, 0, 0); });
}

int ListWindow::focusedRow() const {
    return ListView_GetNextItem(handle(), -1, LVNI_FOCUSED);
}

POINT ListWindow::contextMenuByKey() const {
    const int row = ListView_GetNextItem(handle(), -1, LVNI_SELECTED);
    RECT label{};
    POINT place{0, 0};
    if (row >= 0 && ListView_GetItemRect(handle(), row, &label, LVIR_LABEL))
        place = {label.left, label.bottom};
    ClientToScreen(handle(), &place);
    return place;
}

RECT ListWindow::roomBelowRows() const {
    RECT room{};
    GetClientRect(handle(), &room);
    for (int row = 0; row < list_.count(); ++row) {
        RECT place{};
        ListView_GetItemRect(handle(), row, &place, LVIR_BOUNDS);
        room.top = std::max(room.top, place.bottom);
    }
    return room;
}

LRESULT ListWindow::notify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            fill(reinterpret_cast<NMLVDISPINFOW&>(header).item);
            return 0;
        case NM_CUSTOMDRAW:
            return draw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
        case LVN_ODFINDITEMW:
            return find(reinterpret_cast<NMLVFINDITEMW&>(header));
        case LVN_ITEMCHANGED:
            itemChanged(reinterpret_cast<NMLISTVIEW&>(header));
            return 0;
        case LVN_ODSTATECHANGED:
            postSelection();
            return 0;
        case LVN_COLUMNCLICK:
            columnClicked(reinterpret_cast<NMLISTVIEW&>(header).iSubItem + 1);
            return 0;
        case NM_DBLCLK:
            doubleClicked(reinterpret_cast<NMITEMACTIVATE&>(header));
            return 0;
        case LVN_BEGINDRAG:
            beginDrag(reinterpret_cast<NMLISTVIEW&>(header).iItem);
            return 0;
        case LVN_BEGINLABELEDITW:
            return labelEdit_.refuses();
        case LVN_ENDLABELEDITW:
            labelEdit_.ended(reinterpret_cast<NMLVDISPINFOW&>(header).item.pszText);
            return FALSE;
        default:
            return 0;
    }
}

void ListWindow::fill(LVITEMW& wanted) const {
    if (wanted.iItem < 0 || wanted.iItem >= list_.count()) return;
    const ListItem& item = list_.row(wanted.iItem);
    if ((wanted.mask & LVIF_IMAGE) != 0) wanted.iImage = item.icon();
    if ((wanted.mask & LVIF_TEXT) != 0) wanted.pszText = uncopied(item.column(wanted.iSubItem + 1));
}

LRESULT ListWindow::draw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto row = static_cast<int>(draw.nmcd.dwItemSpec);
    if (row >= list_.count() || !list_.row(row).bold()) return CDRF_DODEFAULT;
    SelectObject(draw.nmcd.hdc, boldFont_);
    return CDRF_NEWFONT;
}

/// What the user types moves to the next row that begins so; -1 when there is none.
LRESULT ListWindow::find(const NMLVFINDITEMW& wanted) const {
    const int count = list_.count();
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || count == 0) return -1;
    for (int step = 0; step < count; ++step) {
        const int row = (std::max(wanted.iStart, 0) + step) % count;
        if (startsWith(list_.row(row).text(), wanted.lvfi.psz)) return row;
    }
    return -1;
}

void ListWindow::itemChanged(const NMLISTVIEW& change) {
    const UINT changed = change.uOldState ^ change.uNewState;
    if ((changed & (LVIS_SELECTED | LVIS_FOCUSED)) != 0) postSelection();
}

/// One report for all that changes together.
void ListWindow::postSelection() {
    if (showing_ || selectionPosted_) return;
    selectionPosted_ = true;
    gate_.post([this] {
        selectionPosted_ = false;
        reportSelection();
    });
}

void ListWindow::reportSelection() {
    std::vector<ListItem*> items;
    int row = -1;
    while ((row = ListView_GetNextItem(handle(), row, LVNI_SELECTED)) >= 0) items.push_back(&list_.row(row));
    const int focused = focusedRow();
    list_.userSelects(items, focused >= 0 ? &list_.row(focused) : nullptr);
}

void ListWindow::columnClicked(int column) {
    gate_.post([this, column] {
        if (list_.events.columnClick) list_.events.columnClick(column);
    });
}

void ListWindow::doubleClicked(const NMITEMACTIVATE& click) {
    if (click.iItem < 0) return;
    gate_.post([this] {
        if (list_.events.doubleClick) list_.events.doubleClick();
    });
}

void ListWindow::beginDrag(int row) {
    if (!dragged || row < 0 || row >= list_.count()) return;
    gate_.post([this, key = list_.row(row).key()] {
        if (GetKeyState(VK_LBUTTON) < 0) dragged(key);
    });
}

}  // namespace blattwart
