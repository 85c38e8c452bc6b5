#pragma once

#include <array>
#include <cstdint>

#include "controls/Control.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/ToolBar.h"
#include "controls/TreeView.h"
#include "platform/Platform.h"

namespace blattwart {

/// The main window: navigator tree, list, splitter, title strip, toolbar, status bar. All measures are twips.
class frmMain {
  public:
    explicit frmMain(Platform& platform);

    // Controls. The window that shows them sets the heights of tbToolBar, picTitles and sbStatusBar and the
    // width of imgSplitter before Form_Load; everything else is laid out by SizeControls.
    TreeView tvTreeView;
    ListView lvListView;
    Control picTitles;
    std::array<Label, 2> lblTitle;
    ToolBar tbToolBar;
    StatusBar sbStatusBar;
    Control imgSplitter;
    Control picSplitter;
    MenuItem menuBar;

    /// The window that shows the form; set once it exists, before Form_Load.
    void setWindow(FormWindow* window) { window_ = window; }
    FormWindow& window() { return *window_; }

    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_Paint();
    void Form_Unload();
    void imgSplitter_MouseDown();
    /// `x` is the mouse's position relative to the splitter image's left edge.
    void imgSplitter_MouseMove(float x);
    void imgSplitter_MouseUp();
    void ctlTimer_Timer();
    void SizeControls(float x);

    static constexpr int timerInterval = 500;  ///< of the watchdog, milliseconds

  private:
    FormWindow* window_ = nullptr;
};

/// Makes the windows that show the program's forms.
class FormPresenter {
  public:
    virtual ~FormPresenter() = default;
    /// Makes the (still hidden) window of the main form. The window lives until the form is unloaded.
    virtual FormWindow& createMainWindow(frmMain& form) = 0;
};

}  // namespace blattwart
