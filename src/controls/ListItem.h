#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace blattwart {

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
    /// `index` counts from 2 to the number of the list's columns, else RuntimeError (invalid call).
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
    std::uint64_t serial_ = 0;  // ascending in the order in which the items were added
    Content content_;
    bool selected_ = false;
    bool removed_ = false;  // within an update: waits for being added again, else goes when the update ends
    std::optional<Content> contentBefore_;  // what they were before the update, where it touched them
    std::optional<bool> selectedBefore_;
};

}  // namespace blattwart
