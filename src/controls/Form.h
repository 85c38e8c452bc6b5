#pragma once

#include "controls/Menu.h"
#include "platform/Desktop.h"

namespace blattwart {

/// Place and size of a top-level window in twips of the system's DPI.
struct Placement {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// The window of a form, as the form itself sees it.
class FormWindow {
  public:
    /// What the window's frame takes of its width in the layout rules, twips: the layout's right margin.
    static constexpr float frameAllowance = 100;

    virtual ~FormWindow() = default;

    virtual WindowHandle handle() const = 0;
    virtual Placement placement() const = 0;
    virtual void setPlacement(const Placement& placement) = 0;
    virtual bool minimised() const = 0;
    /// Client width plus frameAllowance, twips of the window's DPI.
    virtual float width() const = 0;
    /// Resizes the window until width() gives this.
    virtual void setWidth(float twips) = 0;
    /// Client height, twips of the window's DPI.
    virtual float innerHeight() const = 0;
    virtual void show() = 0;
    /// Closes the window as its user would.
    virtual void close() = 0;
    /// Pops the menu up where the last context-menu event of a control asked for it.
    virtual void popUpMenu(MenuItem& menu) = 0;
};

}  // namespace blattwart
