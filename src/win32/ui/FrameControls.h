#pragma once

#include <windows.h>

#include <array>
#include <optional>

#include "shell/frmMain.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/Fonts.h"
#include "win32/ui/ListWindow.h"
#include "win32/ui/Pictures.h"
#include "win32/ui/PictureWindow.h"
#include "win32/ui/StatusBarWindow.h"
#include "win32/ui/ToolBarWindow.h"
#include "win32/ui/TreeWindow.h"

namespace blattwart {

/// The windows of the main form's controls.
class FrameControls {
  public:
    static constexpr int firstToolBarCommand = 0x1000;

    FrameControls(HWND frame, frmMain& form, EventGate& gate);
    FrameControls(const FrameControls&) = delete;
    FrameControls& operator=(const FrameControls&) = delete;
    ~FrameControls();

    /// Fonts and pictures for the DPI; sets the heights that follow from them in the models.
    void setDpi(int dpi);
    /// Whether the font of setDpi is still the one that the user has chosen.
    bool hasUsersFont() const;
    /// Brings all windows in line with the models if one has changed, in one move.
    void layOut();
    /// The frame has another size.
    void frameChanged() { changed_ = true; }
    /// The answer to a control's notification; nothing when it is none of ours.
    std::optional<LRESULT> notify(NMHDR& header);
    /// Where the splitter is taken hold of, in the frame: between the contents of tree and list.
    RECT splitterGap() const;
    bool isTree(HWND window) const { return window == tree_.handle(); }
    bool isList(HWND window) const { return window == list_.handle(); }
    TreeWindow& tree() { return tree_; }
    ListWindow& list() { return list_; }
    ToolBarWindow& toolBar() { return toolBar_; }
    StatusBarWindow& statusBar() { return statusBar_; }
    bool editing() const { return tree_.editing() || list_.editing(); }

  private:
    std::array<Control*, 10> models();
    void alignToFrame();
    void place();

    HWND frame_;
    frmMain& form_;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    bool changed_ = true;
    Font font_;
    Font boldFont_;
    Pictures pictures_;
    // In the order of the tab key; screen readers name tree and list by the title before them.
    ControlWindow splitterBar_;
    ControlWindow treeTitle_;
    TreeWindow tree_;
    ControlWindow listTitle_;
    ListWindow list_;
    PictureWindow preview_;
    ToolBarWindow toolBar_;
    StatusBarWindow statusBar_;
};

}  // namespace blattwart
