#include "win32/ui/ListWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

#include "ControlHost.h"
#include "controls/Update.h"
#include "win32/platform/Win32Locale.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"

namespace blattwart::test {

namespace {

constexpr std::array<const wchar_t*, 5> headings{L"Bezeichnung", L"Plotgerät", L"Papierformat",
                                                 L"Ausrichtung", L"Plotstil"};

class ListWindowTest : public testing::Test {
  protected:
    ListWindowTest() {
        list.setMode(ListViewMode::details);
        list.setSorted(true);
        for (const wchar_t* heading : headings) list.addColumn(heading, 1500);
        fill({L"Blatt 10", L"Blatt 2", L"Änderung"});
        window.emplace(host.window(), list, host.gate());
        host.notify = [this](NMHDR& header) { return window->notify(header); };
        window->setFonts(font.get(), bold.get(), windowDpi(handle()));
        SetWindowPos(handle(), nullptr, 0, 0, 660, 300, SWP_NOZORDER);
        list.events.selectionChange = [this] { happened += L"selection;"; };
        list.events.columnClick = [this](int column) {
            happened += L"column " + std::to_wstring(column) + L";";
        };
        list.events.doubleClick = [this] { happened += L"double;"; };
        list.events.afterLabelEdit = [this](const std::wstring& text) { happened += L"edit " + text + L";"; };
        pump();
    }
    ~ListWindowTest() override { host.notify = nullptr; }

    void fill(const std::vector<std::wstring>& texts) {
        const Update update(list);
        list.clear();
        for (const std::wstring& text : texts) {
            ListItem& item = list.add(L"L" + text, text, 2);
            item.setColumn(2, L"Plotter " + text);
        }
    }

    HWND handle() const { return window->handle(); }
    HWND header() const { return reinterpret_cast<HWND>(SendMessageW(handle(), LVM_GETHEADER, 0, 0)); }

    std::wstring cell(int row, int column) const {
        std::array<wchar_t, 400> text{};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(handle(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return item.pszText;
    }

    UINT state(int row) const {
        return static_cast<UINT>(
            SendMessageW(handle(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED | LVIS_FOCUSED));
    }

    std::vector<int> shownOrder() const {
        std::vector<int> order(headings.size());
        SendMessageW(handle(), LVM_GETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
        return order;
    }

    int arrow(int column) const {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header(), HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    }

    RECT headerPlace(int column) const {
        RECT place{};
        SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&place));
        return place;
    }

    /// Moves the mouse over the header with its button held.
    void dragHeader(int from, int to) {
        SendMessageW(header(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from, 8));
        for (const int x : {from + (to - from) / 2, to}) {
            SendMessageW(header(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, 8));
        }
        SendMessageW(header(), WM_LBUTTONUP, 0, MAKELPARAM(to, 8));
        pump();
    }

    POINT rowPlace(int row) const {
        RECT place{LVIR_LABEL, 0, 0, 0};
        SendMessageW(handle(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
        return {place.left + 4, (place.top + place.bottom) / 2};
    }

    std::wstring taken() { return std::exchange(happened, {}); }

    ControlHost host;
    Win32Locale locale;
    Font font = messageFont(96);
    Font bold = boldFont(font.get());
    ListView list{locale};
    std::optional<ListWindow> window;
    std::wstring happened;
};

TEST_F(ListWindowTest, ColumnsFollowTheModelInAllOrders) {
    std::vector<int> positions(headings.size());
    std::iota(positions.begin(), positions.end(), 0);
    do {
        list.setColumnPositions(positions);
        const std::vector<int> order = shownOrder();
        for (std::size_t column = 0; column < positions.size(); ++column) {
            ASSERT_EQ(order.at(static_cast<std::size_t>(positions[column])), static_cast<int>(column));
        }
    } while (std::next_permutation(positions.begin(), positions.end()));
    list.setColumnWidth(2, 3000);
    EXPECT_EQ(SendMessageW(handle(), LVM_GETCOLUMNWIDTH, 1, 0), toPixels(3000, windowDpi(handle())));
    list.clearColumns();
    list.addColumn(L"Dateiname", 5000);
    EXPECT_EQ(SendMessageW(header(), HDM_GETITEMCOUNT, 0, 0), 1);
}

TEST_F(ListWindowTest, WidthsSurviveOtherViews) {
    for (const ListViewMode mode : {ListViewMode::largeIcons, ListViewMode::list, ListViewMode::smallIcons}) {
        list.setMode(mode);
        list.setColumnWidth(1, 4500);
        list.setMode(ListViewMode::details);
        EXPECT_EQ(SendMessageW(handle(), LVM_GETCOLUMNWIDTH, 0, 0), toPixels(4500, windowDpi(handle())));
        list.setColumnWidth(1, 1500);
    }
}

TEST_F(ListWindowTest, TheHeaderReportsDraggingAndResizing) {
    const RECT first = headerPlace(0);
    const RECT third = headerPlace(2);
    dragHeader((first.left + first.right) / 2, third.right - 5);
    EXPECT_EQ(shownOrder(), (std::vector<int>{1, 2, 0, 3, 4}));
    EXPECT_EQ(list.columns()[0].position, 2);
    EXPECT_EQ(list.columns()[1].position, 0);
    const RECT leading = headerPlace(1);
    dragHeader(leading.right - 1, leading.right + 39);
    EXPECT_EQ(list.columns()[1].width, toTwips(leading.right - leading.left + 40, windowDpi(handle())));
}

TEST_F(ListWindowTest, TheArrowShowsTheSortOrder) {
    EXPECT_EQ(arrow(0), 0);
    const RECT second = headerPlace(1);
    SendMessageW(header(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(second.left + 20, 8));
    SendMessageW(header(), WM_LBUTTONUP, 0, MAKELPARAM(second.left + 20, 8));
    pump();
    EXPECT_EQ(taken(), L"column 2;");
    list.setSortKey(1);
    EXPECT_EQ(arrow(1), HDF_SORTUP);
    list.setSortOrder(SortOrder::descending);
    EXPECT_EQ(arrow(1), HDF_SORTDOWN);
    list.setSorted(false);
    EXPECT_EQ(arrow(1), 0);
}

TEST_F(ListWindowTest, SelectionGoesBothWays) {
    list.setSelected(list.row(2), true);
    list.setFocused(&list.row(2));
    EXPECT_EQ(state(2), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
    pump();
    EXPECT_EQ(taken(), L"") << "set in code";
    click(handle(), rowPlace(0));
    EXPECT_EQ(taken(), L"selection;");
    EXPECT_EQ(list.selected(), &list.row(0));
    EXPECT_FALSE(list.row(2).selected());
    list.selectAll();
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(state(row) & LVIS_SELECTED);
    click(handle(), rowPlace(1), WM_LBUTTONDBLCLK, WM_LBUTTONUP);
    EXPECT_NE(taken().find(L"double;"), std::wstring::npos);
    fill({L"A", L"B"});
    EXPECT_EQ(state(0) | state(1), 0u);
}

TEST_F(ListWindowTest, TypingFindsTheNextRow) {
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
    const auto found = [&](const wchar_t* text) {
        wanted.psz = text;
        return SendMessageW(handle(), LVM_FINDITEMW, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(&wanted));
    };
    EXPECT_EQ(found(L"blatt 1"), 2);
    EXPECT_EQ(found(L"fehlt"), -1);
}

TEST_F(ListWindowTest, OnlyReturnTakesAnEditedLabelOver) {
    const auto field = [this] { return childOfClass(handle(), L"Edit"); };
    SendMessageW(handle(), LVM_EDITLABELW, 0, 0);
    EXPECT_FALSE(field()) << "begins by command only";
    for (const auto& [key, report] : {std::pair(VK_RETURN, L"edit Blatt 7;"), std::pair(VK_ESCAPE, L"")}) {
        list.startLabelEdit(list.row(1));
        pump();
        ASSERT_TRUE(field());
        EXPECT_EQ(textOf(field()), L"Blatt 2");
        taken();
        SetWindowTextW(field(), L"Blatt 7");
        press(field(), static_cast<WPARAM>(key));
        EXPECT_EQ(taken(), report);
        EXPECT_EQ(cell(1, 0), L"Blatt 2");
        EXPECT_FALSE(list.editedItem());
    }
}

}  // namespace

}  // namespace blattwart::test
