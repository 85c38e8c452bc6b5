#include "win32/ui/ListHeader.h"

#include <array>

#include "win32/base/Scope.h"
#include "win32/ui/Dpi.h"

namespace blattwart {

ListHeader::ListHeader(HWND list, ListView& model, EventGate& gate)
    : list_(list), model_(model), gate_(gate) {
    SetWindowSubclass(list_, listProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

ListHeader::~ListHeader() {
    RemoveWindowSubclass(list_, listProcedure, 1);
}

void ListHeader::setDpi(int dpi) {
    dpi_ = dpi;
    showColumns();
}

int ListHeader::columnCount() const {
    return Header_GetItemCount(ListView_GetHeader(list_));
}

void ListHeader::showColumns() {
    const ScopedFlag showing(showing_);
    if (!hasSameTexts()) rebuild();
    if (model_.mode() == ListViewMode::details) showWidths();
    showOrder();
    showSorting();
}

bool ListHeader::hasSameTexts() const {
    if (columnCount() != static_cast<int>(model_.columns().size())) return false;
    int index = 0;
    for (const ListColumn& column : model_.columns()) {
        std::array<wchar_t, 260> text{};
        LVCOLUMNW shown{};
        shown.mask = LVCF_TEXT;
        shown.pszText = text.data();
        shown.cchTextMax = static_cast<int>(text.size());
        SendMessageW(list_, LVM_GETCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&shown));
        if (column.text != shown.pszText) return false;
    }
    return true;
}

void ListHeader::rebuild() {
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    for (int index = columnCount(); index-- > 0;) ListView_DeleteColumn(list_, index);
    int index = 0;
    for (const ListColumn& column : model_.columns()) {
        LVCOLUMNW added{};
        added.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        added.fmt = LVCFMT_LEFT;
        added.cx = toPixels(column.width, dpi_);
        added.pszText = const_cast<wchar_t*>(column.text.c_str());
        added.iSubItem = index;
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++),
                     reinterpret_cast<LPARAM>(&added));
    }
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

void ListHeader::showWidths() {
    int index = 0;
    for (const ListColumn& column : model_.columns()) {
        const int width = toPixels(column.width, dpi_);
        if (ListView_GetColumnWidth(list_, index) != width) ListView_SetColumnWidth(list_, index, width);
        ++index;
    }
}

void ListHeader::showOrder() {
    const auto count = model_.columns().size();
    std::vector<int> wanted(count);
    std::vector<int> shown(count);
    for (std::size_t index = 0; index < count; ++index) {
        wanted.at(static_cast<std::size_t>(model_.columns()[index].position)) = static_cast<int>(index);
    }
    const int columns = static_cast<int>(count);
    if (columns == 0 || !ListView_GetColumnOrderArray(list_, columns, shown.data()) || shown == wanted)
        return;
    ListView_SetColumnOrderArray(list_, columns, wanted.data());
    InvalidateRect(list_, nullptr, TRUE);
}

void ListHeader::showSorting() {
    const HWND header = ListView_GetHeader(list_);
    for (int index = 0; index < columnCount(); ++index) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        int format = item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN);
        if (model_.sorted() && model_.sortKey() == index) {
            format |= model_.sortOrder() == SortOrder::ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        if (format == item.fmt) continue;
        item.fmt = format;
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
}

void ListHeader::notify(const NMHDR& header) {
    const bool told = header.code == HDN_ITEMCHANGEDW || header.code == HDN_ENDDRAG;
    if (!told || header.hwndFrom != ListView_GetHeader(list_) || showing_) return;
    // Only now it is known that more than the header was handed over.
    const auto& change = reinterpret_cast<const NMHEADERW&>(header);
    if (!change.pitem) return;
    const int column = change.iItem + 1;
    if (header.code == HDN_ITEMCHANGEDW && (change.pitem->mask & HDI_WIDTH) != 0) {
        model_.userResizesColumn(column, toTwips(change.pitem->cxy, dpi_));
    }
    // The header takes the new order over after this notification.
    if (header.code == HDN_ENDDRAG && (change.pitem->mask & HDI_ORDER) != 0 && change.pitem->iOrder >= 0) {
        gate_.post(
            [this, column, position = change.pitem->iOrder] { model_.userMovesColumn(column, position); });
    }
}

/// The header tells its parent, the list, what happens to it.
LRESULT ListHeader::listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR header) {
    auto& self = *reinterpret_cast<ListHeader*>(header);
    const LRESULT result = DefSubclassProc(list, message, wParam, lParam);
    if (message == WM_NOTIFY) {
        self.gate_.guard().guarded([&] { self.notify(*reinterpret_cast<const NMHDR*>(lParam)); });
    }
    return result;
}

}  // namespace blattwart
