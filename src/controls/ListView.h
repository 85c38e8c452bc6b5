#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/Control.h"
#include "platform/Locale.h"

namespace blattwart {

enum class ListViewMode : std::int16_t { largeIcons = 0, smallIcons = 1, list = 2, details = 3 };
enum class SortOrder : std::int16_t { ascending = 0, descending = 1 };

class ListView;

/// One row of a list: its text stands in the first column, the sub-items in the others.
class ListItem {
  public:
    const std::wstring& key() const { return key_; }
    const std::wstring& text() const { return content_.text; }
    /// Text of the column with this index (1 is the first column, the item's own text); "" when not set.
    const std::wstring& column(int index) const;
    int icon() const { return content_.icon; }
    bool bold() const { return content_.bold; }
    bool selected() const { return selected_; }

    void setText(std::wstring text);
    void setColumn(int index, std::wstring text);
    void setBold(bool bold);

  private:
    friend class ListView;
    struct Content {
        std::wstring text;
        std::vector<std::wstring> subItems;
        int icon = 0;
        bool bold = false;
        friend bool operator==(const Content&, const Content&) = default;
    };
    ListItem(ListView& list, std::wstring key) : list_(list), key_(std::move(key)) {}

    ListView& list_;
    std::wstring key_;
    Content content_;
    bool selected_ = false;
};

/// One column: width in twips, display position counted from 0.
struct ListColumn {
    std::wstring text;
    float width = 0;
    int position = 0;
};

/// The window that shows a list. Told once per update, and only what really differs.
class ListViewListener {
  public:
    virtual ~ListViewListener() = default;
    virtual void rowsChanged() = 0;        ///< other rows, or the same in another order
    virtual void rowChanged(int row) = 0;  ///< content of the row at this displayed place (from 0)
    virtual void selectionChanged() = 0;   ///< selection or focus
    virtual void columnsChanged() = 0;
    virtual void sortChanged() = 0;  ///< sort column, order, sorting on or off
    virtual void modeChanged() = 0;
    virtual void labelEditStarted(const ListItem& item) = 0;
    virtual void labelEditCancelled() = 0;
};

/// A list control without its window. It owns order and sorting; rows are the items in displayed order.
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
    ~ListView();

    /// Throws RuntimeError (duplicate key).
    ListItem& add(std::wstring key, std::wstring text, int icon = 0);
    ListItem* find(std::wstring_view key);
    void remove(std::wstring_view key);
    void clear();
    int count() const { return static_cast<int>(rows_.size()); }
    /// The item at a displayed place, counted from 0.
    ListItem& row(int row) { return *rows_.at(static_cast<std::size_t>(row)); }
    const ListItem& row(int row) const { return *rows_.at(static_cast<std::size_t>(row)); }
    int rowOf(const ListItem& item) const;

    void setSelected(ListItem& item, bool selected);
    void setFocused(ListItem* item);
    ListItem* focused() const { return focused_; }
    /// The focused item if it is selected, else the first selected, else null.
    ListItem* selected() const;
    /// In displayed order.
    std::vector<ListItem*> selectedItems() const;
    void clearSelection();
    void selectAll();

    const std::vector<ListColumn>& columns() const { return columns_; }
    void clearColumns();
    void addColumn(std::wstring text, float widthTwips);
    /// `index` counts from 1. Throws invalid call for an unknown index or a negative width.
    void setColumnWidth(int index, float twips);
    /// Moves the column with this index (from 1) to a display position (from 0); the others close up and make
    /// room. Throws invalid call for an unknown index or position.
    void setColumnPosition(int index, int position);
    /// All display positions at once, in column order; must be a permutation of 0..n-1, else invalid call.
    void setColumnPositions(const std::vector<int>& positions);

    bool sorted() const { return sorted_; }
    void setSorted(bool sorted);
    /// Column index from 0; -1 before the user has chosen one (rows then sort by their first column).
    int sortKey() const { return sortKey_; }
    void setSortKey(int column);
    SortOrder sortOrder() const { return sortOrder_; }
    void setSortOrder(SortOrder order);

    ListViewMode mode() const { return mode_; }
    void setMode(ListViewMode mode);

    void BeginUpdate();
    void EndUpdate();
    void setListener(ListViewListener* listener) { listener_ = listener; }

    /// What the user did, reported by the window (or by a test).
    void userSelects(const std::vector<ListItem*>& items, ListItem* focused);
    void userResizesColumn(int index, float twips);
    void userMovesColumn(int index, int position);

    void startLabelEdit(ListItem& item);
    void cancelLabelEdit();
    ListItem* editedItem() const { return editedItem_; }
    void userEndsLabelEdit(const std::wstring* text);

  private:
    friend class ListItem;
    const Locale& locale_;
    std::vector<std::unique_ptr<ListItem>> items_;  // in the order in which they were added
    std::unordered_map<std::wstring, ListItem*> byKey_;
    std::vector<ListItem*> rows_;
    ListItem* focused_ = nullptr;
    std::vector<ListColumn> columns_;
    bool sorted_ = false;
    int sortKey_ = -1;
    SortOrder sortOrder_ = SortOrder::ascending;
    ListViewMode mode_ = ListViewMode::largeIcons;
    ListItem* editedItem_ = nullptr;
    int updates_ = 0;
    ListViewListener* listener_ = nullptr;
};

}  // namespace blattwart
