#include "controls/ToolBar.h"

#include <algorithm>

namespace blattwart {

void ToolBar::add(ToolBarButton button) {
    buttons_.push_back(std::move(button));
    if (changed) changed();
}

void ToolBar::setButtonEnabled(int index, bool enabled) {
    setState(index, &ToolBarButton::enabled, enabled);
}

void ToolBar::setButtonPressed(int index, bool pressed) {
    setState(index, &ToolBarButton::pressed, pressed);
}

void ToolBar::setState(int index, bool ToolBarButton::*state, bool value) {
    ToolBarButton& button = buttons_.at(static_cast<std::size_t>(index - 1));
    if (button.*state == value) return;
    button.*state = value;
    if (buttonChanged) buttonChanged(index);
}

void ToolBar::userClicks(std::wstring_view key) {
    const auto button = std::ranges::find(buttons_, key, &ToolBarButton::key);
    if (!enabled() || button == buttons_.end() || !button->enabled) return;
    if (button->style == ToolBarButton::Style::separator) return;
    if (button->style == ToolBarButton::Style::check)
        setButtonPressed(static_cast<int>(button - buttons_.begin()) + 1, !button->pressed);
    if (events.buttonClick) events.buttonClick(button->key);
}

}  // namespace blattwart
