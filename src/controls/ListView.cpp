#include "controls/ListView.h"

#include <algorithm>
#include <unordered_set>

namespace blattwart {

ListItem& ListView::add(const std::wstring& key, std::wstring text, int icon) {
    if (byKey_.contains(key)) throwDuplicateKey();
    const Change change(*this);
    if (auto removed = removed_.extract(key)) {
        byKey_.insert(std::move(removed));
    } else {
        byKey_[key].reset(new ListItem(*this, key));
    }
    ListItem& item = *byKey_.find(key)->second;
    remember(item, {});
    item.removed_ = false;
    item.serial_ = ++lastSerial_;
    item.content_ = {.text = std::move(text), .subItems = {}, .icon = icon, .bold = false};
    items_.push_back(&item);
    place(item);
    return item;
}

ListItem* ListView::find(std::wstring_view key) {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second.get();
}

void ListView::remove(std::wstring_view key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) throwElementNotFound();
    const Change change(*this);
    ListItem& item = *found->second;
    displace(item);
    retire(item);
    items_.erase(std::ranges::lower_bound(items_, item.serial_, {}, &ListItem::serial_));
    removed_.insert(byKey_.extract(found));
}

void ListView::clear() {
    if (items_.empty()) return;
    const Change change(*this);
    disarrange();
    for (ListItem* item : items_) retire(*item);
    items_.clear();
    if (removed_.empty()) {
        std::swap(removed_, byKey_);
    } else {
        removed_.merge(byKey_);
    }
}

int ListView::rowOf(const ListItem& item) const {
    const auto found = std::ranges::find(rows(), &item);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

void ListView::setSelected(ListItem& item, bool selected) {
    const Change change(*this);
    markSelected(item, selected);
}

void ListView::setFocused(ListItem* item) {
    const Change change(*this);
    focused_ = item;
}

ListItem* ListView::selected() const {
    if (focused() && focused_->selected_) return focused_;
    const auto first = std::ranges::find_if(rows(), &ListItem::selected);
    return first == rows().end() ? nullptr : *first;
}

std::vector<ListItem*> ListView::selectedItems() const {
    std::vector<ListItem*> result;
    std::ranges::copy_if(rows(), std::back_inserter(result), &ListItem::selected);
    return result;
}

void ListView::selectAll() {
    const Change change(*this);
    for (ListItem* item : items_) markSelected(*item, true);
}

void ListView::ensureVisible(const ListItem& item) {
    if (listener_) {
        listener_->rowWanted(rowOf(item));
    } else {
        topRow_ = rowOf(item);
    }
}

void ListView::clearColumns() {
    const Change change(*this);
    rememberColumns();
    columns_.clear();
}

void ListView::addColumn(std::wstring text, float widthTwips) {
    if (widthTwips < 0) throwInvalidCall();
    const Change change(*this);
    rememberColumns();
    columns_.push_back({std::move(text), widthTwips, static_cast<int>(columns_.size())});
}

void ListView::setColumnWidth(int index, float twips) {
    if (twips < 0) throwInvalidCall();
    const Change change(*this);
    changeColumn(index).width = twips;
}

void ListView::setColumnPosition(int index, int position) {
    if (position < 0 || position >= static_cast<int>(columns_.size())) throwInvalidCall();
    const Change change(*this);
    ListColumn& moved = changeColumn(index);
    for (ListColumn& column : columns_) {
        if (column.position > moved.position && column.position <= position) --column.position;
        if (column.position < moved.position && column.position >= position) ++column.position;
    }
    moved.position = position;
}

void ListView::setColumnPositions(const std::vector<int>& positions) {
    std::vector<int> all(columns_.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<int>(i);
    if (!std::ranges::is_permutation(positions, all)) throwInvalidCall();
    const Change change(*this);
    rememberColumns();
    for (std::size_t i = 0; i < all.size(); ++i) columns_[i].position = positions[i];
}

void ListView::setSorted(bool sorted) {
    changeArrangement({sorted, arrangement_.key, arrangement_.order});
}

void ListView::setSortKey(int column) {
    if (column < -1) throwInvalidCall();
    changeArrangement({arrangement_.sorted, column, arrangement_.order});
}

void ListView::setSortOrder(SortOrder order) {
    changeArrangement({arrangement_.sorted, arrangement_.key, order});
}

void ListView::setMode(ListViewMode mode) {
    const Change change(*this);
    mode_ = mode;
}

void ListView::userSelects(const std::vector<ListItem*>& items, ListItem* focused) {
    const std::unordered_set<const ListItem*> wanted(items.begin(), items.end());
    bool changes = focused != this->focused();
    {
        const Change change(*this);
        for (ListItem* item : items_) changes |= markSelected(*item, wanted.contains(item));
        focused_ = focused;
    }
    if (changes && events.selectionChange) events.selectionChange();
}

void ListView::userResizesColumn(int index, float twips) {
    setColumnWidth(index, twips);
}

void ListView::userMovesColumn(int index, int position) {
    setColumnPosition(index, position);
}

void ListView::startLabelEdit(ListItem& item) {
    cancelLabelEdit();
    {
        const Change change(*this);
        markSelected(item, true);
        focused_ = &item;
    }
    editedItem_ = &item;
    if (listener_) listener_->labelEditStarted(item);
}

void ListView::cancelLabelEdit() {
    if (!std::exchange(editedItem_, nullptr)) return;
    if (listener_) listener_->labelEditCancelled();
}

void ListView::userEndsLabelEdit(const std::wstring* text) {
    if (!std::exchange(editedItem_, nullptr)) return;
    if (text && events.afterLabelEdit) events.afterLabelEdit(*text);
}

void ListView::retire(ListItem& item) {
    remember(item, std::move(item.content_));
    if (!item.selectedBefore_) before_.selections.push_back(&item);
    item.selectedBefore_ = item.selectedBefore_.value_or(item.selected_);
    item.removed_ = true;
}

/// Returns whether that changed the item's selection.
bool ListView::markSelected(ListItem& item, bool selected) {
    if (item.selected_ == selected) return false;
    if (!item.selectedBefore_) {
        item.selectedBefore_ = item.selected_;
        before_.selections.push_back(&item);
    }
    item.selected_ = selected;
    return true;
}

ListColumn& ListView::changeColumn(int index) {
    if (index < 1 || index > static_cast<int>(columns_.size())) throwInvalidCall();
    rememberColumns();
    return columns_[static_cast<std::size_t>(index) - 1];
}

}  // namespace blattwart
