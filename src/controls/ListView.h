#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"
#include "controls/Keys.h"
#include "controls/ListItem.h"
#include "controls/Update.h"
#include "platform/Locale.h"

namespace blattwart {

enum class ListViewMode : std::int16_t { largeIcons = 0, smallIcons = 1, list = 2, details = 3 };
enum class SortOrder : std::int16_t { ascending = 0, descending = 1 };

/// One column: width in twips, display position counted from 0.
struct ListColumn {
    std::wstring text;
    float width = 0;
    int position = 0;
    friend bool operator==(const ListColumn&, const ListColumn&) = default;
};

/// The window that shows a list. Told once per update, when it ends, and only what differs from before it.
class ListViewListener {
  public:
    virtual ~ListViewListener() = default;
    virtual void
    rowsChanged() = 0;  ///< other rows, or the same in another order; covers their content. The rows that
                        ///< hold selection and focus may be other ones without selectionChanged
    virtual void rowChanged(int row) = 0;  ///< content of the row at this displayed place (from 0)
    virtual void selectionChanged() = 0;   ///< selection or focus
    virtual void columnsChanged() = 0;
    virtual void sortChanged() = 0;  ///< sort column, order, sorting on or off
    virtual void modeChanged() = 0;
    virtual void rowWanted(int row) = 0;  ///< the row at this displayed place is to be seen
    virtual void labelEditStarted(const ListItem& item) = 0;
    virtual void labelEditCancelled() = 0;
};

/// A list control without its window. It owns order and sorting; rows are the items in displayed order.
///
/// An update (BeginUpdate to EndUpdate) is compared by key as a whole: an item that is removed and added
/// again with the same key within it stays the same item and keeps selection, focus and label edit, as if
/// only its content had been set. So a list may be cleared and filled again at every refresh. Outside of an
/// update, and when an item is not added again, removing it drops them.
class ListView : public Control {
  public:
    struct Events {
        std::function<void()> doubleClick;
        std::function<void()> contextMenu;
        std::function<void()> selectionChange;
        std::function<void(int column)> columnClick;  ///< column index counted from 1
        std::function<void(const std::wstring& text)> afterLabelEdit;
    } events;

    /// `locale` compares the rows while sorting is on.
    explicit ListView(const Locale& locale) : locale_(locale) {}

    /// Throws RuntimeError (duplicate key).
    ListItem& add(const std::wstring& key, std::wstring text, int icon = 0);
    ListItem* find(std::wstring_view key);
    /// Throws RuntimeError (element not found).
    void remove(std::wstring_view key);
    void clear();
    int count() const { return static_cast<int>(items_.size()); }
    /// The item at a displayed place, counted from 0. Within an update places hold what it has made so far.
    ListItem& row(int row) { return *rows().at(static_cast<std::size_t>(row)); }
    const ListItem& row(int row) const { return *rows().at(static_cast<std::size_t>(row)); }
    int rowOf(const ListItem& item) const;

    void setSelected(ListItem& item, bool selected);
    void setFocused(ListItem* item);
    ListItem* focused() const { return present(focused_); }
    /// The focused item if it is selected, else the first selected, else null.
    ListItem* selected() const;
    /// In displayed order.
    std::vector<ListItem*> selectedItems() const;
    void selectAll();
    /// Scrolls until the item is seen; the next window begins there when none shows the list. Not to be
    /// called within an update.
    void ensureVisible(const ListItem& item);
    /// The first row that is seen, from 0; the window keeps it here for the next one on this list.
    int topRow() const { return topRow_; }
    void setTopRow(int row) { topRow_ = row; }

    const std::vector<ListColumn>& columns() const { return columns_; }
    void clearColumns();
    /// Appends a column at the last position. Throws invalid call for a negative width.
    void addColumn(std::wstring text, float widthTwips);
    /// `index` counts from 1. Throws invalid call for an unknown index or a negative width.
    void setColumnWidth(int index, float twips);
    /// Moves the column with this index (from 1) to a display position (from 0); the others close up and make
    /// room. Throws invalid call for an unknown index or position.
    void setColumnPosition(int index, int position);
    /// All display positions at once, in column order; must be a permutation of 0..n-1, else invalid call.
    void setColumnPositions(const std::vector<int>& positions);

    bool sorted() const { return arrangement_.sorted; }
    void setSorted(bool sorted);
    /// Column index from 0; -1 before the user has chosen one (rows then sort by their first column).
    int sortKey() const { return arrangement_.key; }
    /// Throws invalid call below -1. A column that the list does not have sorts by the order of adding.
    void setSortKey(int column);
    SortOrder sortOrder() const { return arrangement_.order; }
    void setSortOrder(SortOrder order);

    ListViewMode mode() const { return mode_; }
    void setMode(ListViewMode mode);

    void BeginUpdate();
    void EndUpdate();
    void setListener(ListViewListener* listener) { listener_ = listener; }

    /// What the user did, reported by the window (or by a test).
    /// Selects these and no other items; raises selectionChange if that changes anything.
    void userSelects(const std::vector<ListItem*>& items, ListItem* focused);
    void userResizesColumn(int index, float twips);
    void userMovesColumn(int index, int position);

    /// Edits the item's label, selecting and focusing it. An edit under way is cancelled first, and so is
    /// this one when the item is removed, deselected or loses the focus. Not to be called within an update.
    void startLabelEdit(ListItem& item);
    void cancelLabelEdit();
    ListItem* editedItem() const { return present(editedItem_); }
    /// The window reports the end of the edit: no text when it was cancelled. With a text afterLabelEdit is
    /// raised once the edit is over; the item keeps its text. Nothing happens when no edit is under way.
    void userEndsLabelEdit(const std::wstring* text);

  private:
    friend class ListItem;

    struct Arrangement {
        bool sorted = false;
        int key = -1;
        SortOrder order = SortOrder::ascending;
        friend bool operator==(const Arrangement&, const Arrangement&) = default;
    };
    /// What an update compares with when it ends; copied where the update touches it first.
    struct Before {
        std::optional<std::vector<ListItem*>> rows;
        std::optional<std::vector<ListColumn>> columns;
        std::vector<ListItem*> contents;
        std::vector<ListItem*> selections;
        Arrangement arrangement;
        ListViewMode mode = ListViewMode::largeIcons;
        ListItem* focused = nullptr;
    };
    struct Differences {
        bool columns = false;
        bool mode = false;
        bool sort = false;
        bool rows = false;
        bool selection = false;
        bool labelEdit = false;
        std::vector<int> changedRows;
    };
    /// A single change: an update of its own when none is under way, in which order is kept item by item.
    class Change {
      public:
        explicit Change(ListView& list) : list_(list) { list_.open(); }
        ~Change() { list_.close(); }
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;

      private:
        ListView& list_;
    };

    static ListItem* present(ListItem* item) { return item && !item->removed_ ? item : nullptr; }

    bool comesBefore(const ListItem& a, const ListItem& b) const;
    const std::vector<ListItem*>& rows() const;
    void place(ListItem& item);
    void displace(ListItem& item);
    void disarrange();
    void changeContent(ListItem& item, int column, const std::function<void()>& apply);
    void retire(ListItem& item);
    bool markSelected(ListItem& item, bool selected);
    void changeArrangement(const Arrangement& arrangement);
    ListColumn& changeColumn(int index);

    void open();
    void close();
    void rememberRows();
    void rememberColumns();
    void remember(ListItem& item, ListItem::Content content);
    bool selectionDiffers(const Before& before) const;
    bool labelEditLost() const;
    Differences compare(const Before& before) const;
    void forget(const Before& before);
    void settle();
    void tell(const Differences& differences);

    const Locale& locale_;
    KeyMap<std::unique_ptr<ListItem>> byKey_;
    KeyMap<std::unique_ptr<ListItem>> removed_;  // within the update under way
    std::vector<ListItem*> items_;               // in the order in which they were added
    mutable std::vector<ListItem*> rows_;
    mutable bool arranged_ = true;
    std::uint64_t lastSerial_ = 0;
    ListItem* focused_ = nullptr;
    std::vector<ListColumn> columns_;
    Arrangement arrangement_;
    ListViewMode mode_ = ListViewMode::largeIcons;
    ListItem* editedItem_ = nullptr;
    int topRow_ = 0;
    Before before_;
    int updates_ = 0;
    bool deferred_ = false;  // order is made when it is asked for, not with each item
    ListViewListener* listener_ = nullptr;
};

}  // namespace blattwart
