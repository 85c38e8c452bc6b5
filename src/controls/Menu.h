#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace blattwart {

/// One entry of a menu: a command, a separator (no name, no caption) or a sub-menu.
class MenuItem {
  public:
    MenuItem() = default;
    /// `shortcut` is the text shown behind the caption, such as "F5".
    MenuItem(std::wstring name, std::wstring caption, std::wstring shortcut = {})
        : name_(std::move(name)), caption_(std::move(caption)), shortcut_(std::move(shortcut)) {}
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::wstring& name() const { return name_; }
    const std::wstring& caption() const { return caption_; }
    const std::wstring& shortcut() const { return shortcut_; }
    bool isSeparator() const { return caption_.empty(); }
    bool checked() const { return checked_; }
    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    void setChecked(bool checked) { checked_ = checked; }
    void setEnabled(bool enabled) { enabled_ = enabled; }
    void setVisible(bool visible) { visible_ = visible; }

    MenuItem& add(std::wstring name, std::wstring caption, std::wstring shortcut = {});
    MenuItem& addSeparator() { return add({}, {}); }
    const std::vector<std::unique_ptr<MenuItem>>& items() const { return items_; }

    std::function<void()> click;

  private:
    std::wstring name_;
    std::wstring caption_;
    std::wstring shortcut_;
    bool checked_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace blattwart
