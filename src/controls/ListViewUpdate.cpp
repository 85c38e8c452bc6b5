// How a list keeps its rows in order and finds out what an update changed.

#include <algorithm>

#include "controls/ListView.h"

namespace blattwart {

void ListView::BeginUpdate() {
    open();
    deferred_ = true;
}

void ListView::EndUpdate() {
    close();
}

bool ListView::comesBefore(const ListItem& a, const ListItem& b) const {
    if (arrangement_.sorted) {
        const int column = std::max(arrangement_.key, 0) + 1;
        const int order = locale_.compareNaturally(a.column(column), b.column(column));
        if (order != 0) return (order < 0) == (arrangement_.order == SortOrder::ascending);
    }
    return a.serial_ < b.serial_;
}

const std::vector<ListItem*>& ListView::rows() const {
    if (arranged_) return rows_;
    arranged_ = true;
    const auto before = [this](const ListItem* a, const ListItem* b) { return comesBefore(*a, *b); };
    // A refresh mostly brings the rows that were there: then the order they had needs only to be checked.
    if (removed_.empty() && before_.rows->size() == items_.size()) {
        rows_ = *before_.rows;
        if (std::ranges::is_sorted(rows_, before)) return rows_;
    }
    rows_ = items_;
    if (arrangement_.sorted) std::ranges::sort(rows_, before);
    return rows_;
}

void ListView::place(ListItem& item) {
    if (deferred_) return disarrange();
    rememberRows();
    const auto before = [this](const ListItem* a, const ListItem* b) { return comesBefore(*a, *b); };
    rows_.insert(std::ranges::upper_bound(rows_, &item, before), &item);
}

void ListView::displace(ListItem& item) {
    if (deferred_) return disarrange();
    rememberRows();
    std::erase(rows_, &item);
}

void ListView::disarrange() {
    rememberRows();
    arranged_ = false;
}

void ListView::changeContent(ListItem& item, int column, const std::function<void()>& apply) {
    const Change change(*this);
    remember(item, item.content_);
    const bool moves = arrangement_.sorted && column == std::max(arrangement_.key, 0) + 1;
    if (moves) displace(item);
    apply();
    if (moves) place(item);
}

void ListView::changeArrangement(const Arrangement& arrangement) {
    if (arrangement == arrangement_) return;
    const Change change(*this);
    disarrange();
    arrangement_ = arrangement;
}

void ListView::open() {
    if (updates_++ > 0) return;
    before_.arrangement = arrangement_;
    before_.mode = mode_;
    before_.focused = focused_;
}

void ListView::close() {
    if (updates_ == 0 || --updates_ > 0) return;
    deferred_ = false;
    settle();
}

void ListView::rememberRows() {
    if (!before_.rows) before_.rows = rows_;
}

void ListView::rememberColumns() {
    if (!before_.columns) before_.columns = columns_;
}

void ListView::remember(ListItem& item, ListItem::Content content) {
    if (item.contentBefore_) return;
    item.contentBefore_ = std::move(content);
    before_.contents.push_back(&item);
}

bool ListView::selectionDiffers(const Before& before) const {
    if (before.focused != focused()) return true;
    return std::ranges::any_of(before.selections, [](const ListItem* item) {
        return *item->selectedBefore_ != (item->selected_ && !item->removed_);
    });
}

bool ListView::labelEditLost() const {
    if (!editedItem_) return false;
    return editedItem_->removed_ || !editedItem_->selected_ || editedItem_ != focused_;
}

ListView::Differences ListView::compare(const Before& before) const {
    Differences result;
    result.columns = before.columns && *before.columns != columns_;
    result.mode = before.mode != mode_;
    result.sort = before.arrangement != arrangement_;
    result.rows = before.rows && *before.rows != rows();
    result.selection = selectionDiffers(before);
    result.labelEdit = labelEditLost();
    if (result.rows || before.contents.empty()) return result;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const ListItem& item = *rows_[row];
        if (item.contentBefore_ && *item.contentBefore_ != item.content_)
            result.changedRows.push_back(static_cast<int>(row));
    }
    return result;
}

void ListView::forget(const Before& before) {
    for (ListItem* item : before.contents) item->contentBefore_.reset();
    for (ListItem* item : before.selections) item->selectedBefore_.reset();
    if (!focused()) focused_ = nullptr;
    removed_.clear();
}

void ListView::settle() {
    const Differences differences = compare(before_);
    if (differences.labelEdit) editedItem_ = nullptr;
    forget(before_);
    before_ = {};
    tell(differences);
}

void ListView::tell(const Differences& differences) {
    if (!listener_) return;
    if (differences.labelEdit) listener_->labelEditCancelled();
    if (differences.columns) listener_->columnsChanged();
    if (differences.mode) listener_->modeChanged();
    if (differences.sort) listener_->sortChanged();
    if (differences.rows) listener_->rowsChanged();
    for (const int row : differences.changedRows) listener_->rowChanged(row);
    if (differences.selection) listener_->selectionChanged();
}

}  // namespace blattwart
