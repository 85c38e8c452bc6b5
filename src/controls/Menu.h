#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace blattwart {

/// A key with its modifiers. `key` is a letter's upper-case code or one of the named virtual keys; 0 for
/// none.
struct Shortcut {
    static constexpr std::uint16_t enter = 0x0D;
    static constexpr std::uint16_t escape = 0x1B;
    static constexpr std::uint16_t up = 0x26;
    static constexpr std::uint16_t down = 0x28;
    static constexpr std::uint16_t del = 0x2E;
    static constexpr std::uint16_t f1 = 0x70;
    static constexpr std::uint16_t f2 = 0x71;
    static constexpr std::uint16_t f5 = 0x74;

    std::uint16_t key = 0;
    bool control = false;
    bool alt = false;

    friend bool operator==(const Shortcut&, const Shortcut&) = default;

    /// As menus show it: "Strg+S", "Alt+Auf", "Entf", "Eingabe", "F5".
    std::wstring text() const;
};

/// One entry of a menu: a command, a separator (no name, no caption) or a sub-menu.
class MenuItem {
  public:
    MenuItem() = default;
    /// The caption carries its access key behind "&".
    MenuItem(std::wstring name, std::wstring caption, Shortcut shortcut = {})
        : name_(std::move(name)), caption_(std::move(caption)), shortcut_(shortcut) {}
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::wstring& name() const { return name_; }
    const std::wstring& caption() const { return caption_; }
    const Shortcut& shortcut() const { return shortcut_; }
    bool isSeparator() const { return caption_.empty(); }
    bool checked() const { return checked_; }
    /// One of several of which one is checked.
    bool isChoice() const { return choice_; }
    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    /// Shown in bold: what a double click does where the menu opens.
    bool isDefault() const { return default_; }
    void setChecked(bool checked) { checked_ = checked; }
    void setEnabled(bool enabled) { enabled_ = enabled; }
    void setVisible(bool visible) { visible_ = visible; }
    void setChoice(bool choice) { choice_ = choice; }
    void setDefault(bool isDefault) { default_ = isDefault; }

    MenuItem& add(std::wstring name, std::wstring caption, Shortcut shortcut = {});
    MenuItem& addSeparator() { return add({}, {}); }
    const std::vector<std::unique_ptr<MenuItem>>& items() const { return items_; }

    std::function<void()> click;

  private:
    std::wstring name_;
    std::wstring caption_;
    Shortcut shortcut_;
    bool checked_ = false;
    bool choice_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    bool default_ = false;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace blattwart
