#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace blattwart {

/// What every control has: place and size in twips within its form, visibility, enabling. The window that
/// shows the control sets `changed` and is told of every change that can be seen.
class Control {
  public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    float left() const { return left_; }
    float top() const { return top_; }
    float width() const { return width_; }
    float height() const { return height_; }
    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }
    /// What is said where the mouse rests on the control; "" for nothing.
    const std::wstring& toolTip() const { return toolTip_; }

    void setLeft(float twips) { change(left_, twips); }
    void setTop(float twips) { change(top_, twips); }
    /// Throws RuntimeError (invalid call) when negative.
    void setWidth(float twips);
    /// Throws RuntimeError (invalid call) when negative.
    void setHeight(float twips);
    void setVisible(bool visible) { change(visible_, visible); }
    void setEnabled(bool enabled) { change(enabled_, enabled); }
    void setToolTip(std::wstring text) { toolTip_ = std::move(text); }

    std::function<void()> changed;

  protected:
    template <class T>
    void change(T& field, T value) {
        if (field == value) return;
        field = std::move(value);
        if (changed) changed();
    }

  private:
    float left_ = 0;
    float top_ = 0;
    float width_ = 0;
    float height_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    std::wstring toolTip_;
};

class Label : public Control {
  public:
    const std::wstring& text() const { return text_; }
    void setText(std::wstring text) { change(text_, std::move(text)); }

  private:
    std::wstring text_;
};

/// A status bar; panels are counted from 1, the first takes the room that the others leave;
/// one without a text has none.
class StatusBar : public Control {
  public:
    const std::wstring& panelText(int panel) const { return panels_.at(panel - 1); }
    void setPanelText(int panel, std::wstring text) { change(panels_.at(panel - 1), std::move(text)); }

  private:
    std::vector<std::wstring> panels_ = std::vector<std::wstring>(2);
};

}  // namespace blattwart
