#include "controls/ListItem.h"

#include "controls/ListView.h"

namespace blattwart {

const std::wstring& ListItem::column(int index) const {
    static const std::wstring empty;
    if (index == 1) return content_.text;
    const auto place = static_cast<std::size_t>(index) - 2;
    return index > 1 && place < content_.subItems.size() ? content_.subItems[place] : empty;
}

void ListItem::setText(std::wstring text) {
    if (text == content_.text) return;
    list_.changeContent(*this, 1, [&] { content_.text = std::move(text); });
}

void ListItem::setColumn(int index, std::wstring text) {
    if (index < 2 || index > static_cast<int>(list_.columns().size())) throwInvalidCall();
    if (text == column(index)) return;
    list_.changeContent(*this, index, [&] {
        const auto place = static_cast<std::size_t>(index) - 2;
        if (place >= content_.subItems.size()) content_.subItems.resize(place + 1);
        content_.subItems[place] = std::move(text);
        while (!content_.subItems.empty() && content_.subItems.back().empty()) content_.subItems.pop_back();
    });
}

void ListItem::setBold(bool bold) {
    if (bold == content_.bold) return;
    list_.changeContent(*this, 0, [&] { content_.bold = bold; });
}

}  // namespace blattwart
