#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"

namespace blattwart {

struct ToolBarButton {
    enum class Style { button, separator, check };

    std::wstring key;  ///< empty for a separator
    std::wstring toolTip;
    int image = 0;  ///< index into the toolbar's images, from 1
    Style style = Style::button;
    bool visible = true;
    bool enabled = true;
    bool pressed = false;
};

/// A toolbar; buttons are counted from 1. Its height in twips is set by the window that shows it.
class ToolBar : public Control {
  public:
    struct Events {
        std::function<void(const std::wstring& key)> buttonClick;
    } events;

    void add(ToolBarButton button);
    const std::vector<ToolBarButton>& buttons() const { return buttons_; }
    const ToolBarButton& button(int index) const { return buttons_.at(static_cast<std::size_t>(index - 1)); }
    void setButtonEnabled(int index, bool enabled);
    void setButtonPressed(int index, bool pressed);

    /// The window (or a test) reports a click; nothing happens when the button is disabled. A check button is
    /// pressed or released first, as the native one does by itself.
    void userClicks(std::wstring_view key);

    /// Told the index of the button whose state changed.
    std::function<void(int index)> buttonChanged;

  private:
    void setState(int index, bool ToolBarButton::*state, bool value);

    std::vector<ToolBarButton> buttons_;
};

}  // namespace blattwart
