#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "autocad/HostChoice.h"
#include "controls/Control.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/PictureBox.h"
#include "controls/ToolBar.h"
#include "controls/TreeView.h"
#include "data/NodeKey.h"
#include "platform/Platform.h"
#include "shell/Command.h"

namespace blattwart {

struct LayoutDialogContext;
struct Modules;

/// The main window: navigator tree, list, splitter, title strip, toolbar, status bar. All measures are twips.
class frmMain {
  public:
    explicit frmMain(Platform& platform);

    // Controls. The window that shows them sets the heights of tbToolBar, picTitles and sbStatusBar and the
    // width of imgSplitter before Form_Load; picPreview stands where the list has room below its rows;
    // everything else is laid out by SizeControls.
    TreeView tvTreeView;
    ListView lvListView;
    Control picTitles;
    std::array<Label, 2> lblTitle;
    ToolBar tbToolBar;
    StatusBar sbStatusBar;
    Control imgSplitter;
    Control picSplitter;
    PictureBox picPreview;
    MenuItem menuBar;
    MenuItem popupTemplateMenu;
    MenuItem popupDrawingMenu;
    MenuItem popupLayoutMenu;

    /// The window that shows the form; set once it exists, before Form_Load.
    void setWindow(FormWindow* window) { window_ = window; }
    FormWindow& window() { return *window_; }
    /// The modules that the handlers call; before Form_Load.
    void connect(Modules& modules);

    /// Places the window and loads the column widths. Throws type mismatch or overflow, with a text for the
    /// user, when a stored value is no number or too large.
    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_Paint();
    /// Saves what the user has set up. The window is closed afterwards.
    void Form_Unload();
    void imgSplitter_MouseDown();
    /// `x` is the mouse's position relative to the splitter image's left edge.
    void imgSplitter_MouseMove(float x);
    void imgSplitter_MouseUp();
    void ctlTimer_Timer();
    void SizeControls(float x);
    void SetListViewMode(ListViewMode mode);
    void SetTreeViewViewBySetting();
    void MnuOptAutoCheck();
    /// Enables menu items and toolbar buttons for the selected node.
    void VisbibleMnuMenu();
    /// Sets whether the tree starts drags by itself: the roots cannot be dragged.
    void setDragMode();
    /// The status bar's second panel: a hint is gone with the user's next event, a note stands there until
    /// another one (see NavigatorEvents).
    void showHint(const std::wstring& text);
    void showNote(const std::wstring& text);
    /// Attaches to AutoCAD again when the user has just come back to the window.
    void CheckAutoCAD();

    // Commands of menus, context menus and toolbar.
    void mnuStart_Click();
    void mnuShow_Click();
    void mnuActive_Click();
    void mnuDrawing_Click();
    void mnuModel_Click();
    void mnuSave_Click();
    void mnuSaveAS_Click();
    void mnuFileClose_Click();
    void mnuFileDelete_Click();
    void mnuFileRename_Click();
    void mnuCreate_Click();
    void mnuTemplate_Click();
    void mnuFileOpen_Click();
    void mnuTemplateOpen_Click();
    void mnuTemplateDelete_Click();
    void mnuLayoutImport_Click();
    void mnuEditCopy_Click();
    void mnuEditOpen_Click();
    void mnuEditSelectAll_Click();
    void mnuAutoEnd_Click();
    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();
    void mnuViewRefresh_Click();
    void mnuViewRebuild_Click();
    void mnuPlanList_Click();
    void mnuEnd_Click();
    void mnuHelpContents_Click();
    void mnuHelpSearchForHelpOn_Click();
    void mnuHelpAbout_Click();
    template <int mode>
    void mnuListViewMode_Click() {
        SetListViewMode(static_cast<ListViewMode>(mode));
    }
    template <SortOrder order>
    void sort_Click() {
        lvListView.setSortOrder(order);
        lvListView.setSorted(true);
    }
    void open_Click();
    void delete_Click();
    void active_Click();
    void designCenter_Click();
    void popInsert_Click();
    void popOpenVorlage_Click();
    void popDCB_Click();
    void popDCD_Click();

    static constexpr int timerInterval = 500;  ///< of the watchdog, milliseconds

    /// A menu item of the menu bar or of a context menu by its name; throws element not found.
    MenuItem& item(std::wstring_view name);
    /// Whether the list shows details, in which there is nothing to choose and nothing to delete.
    bool listShowsDetails() const;

  private:
    // What the user does. It takes the hint away that the event before it has left.
    template <class Handler>
    void handle(Handler&& handler) {
        step([&] {
            showHint({});
            handler();
        });
    }
    // One event is handled at a time: what arrives while a host call waits or a message box is open steps
    // aside.
    template <class Handler>
    void step(Handler&& handler) {
        if (platform_.gate.busy()) return;
        const Gate::Event event(platform_.gate);
        handler();
    }

    void showSecondPanel() { sbStatusBar.setPanelText(2, hint_.empty() ? note_ : hint_); }
    bool editing() const { return tvTreeView.editedNode() || lvListView.editedItem(); }
    void buildCommands();
    void addToMenuBar(const Command& command);
    void buildContextMenu(MenuItem& menu, ContextMenu which, wchar_t letter);
    void addMenuItem(MenuItem& menu, std::wstring_view name, const Command& command);
    void buildToolBar();
    /// The menu of the installed releases.
    void buildReleases();
    void addRelease(MenuItem& menu, const std::wstring& name, const std::wstring& caption,
                    const std::optional<InstalledRelease>& release);
    void showChosenRelease();
    void run(const Command& command);
    void runAsCommand(const std::function<void()>& work);
    void showPlaceholder(const Command& command);
    bool isEnabled(const Command& command, unsigned kind, const std::function<bool()>& modelSpacePossible);
    bool drawingHasOtherLayouts(const TreeNode* node) const;
    bool modelSpacePossible();
    void connectEvents();
    void tvTreeView_NodeClick();
    void showStateOfSelection();
    void tvTreeView_AfterLabelEdit(const std::wstring& newText);
    void tvTreeView_FilesDropped(const std::vector<std::wstring>& files);
    void tvTreeView_KeyDropped(const std::wstring& key);
    bool isDropTarget();
    void lvListView_AfterLabelEdit(const std::wstring& newText);
    void lvListView_ColumnClick(int column);
    void popUpContextMenu(const Control& opener);
    void OpenListItem();
    NodeKind selectedKind() const;
    LayoutDialogContext dialogContext();

    /// What an in-place edit of a tree label means.
    enum class LabelEdit : std::int16_t { none = 0, newTemplate = 1, renameLayout = 2 };

    Platform& platform_;
    Modules* modules_ = nullptr;
    FormWindow* window_ = nullptr;
    std::map<std::wstring, MenuItem*, std::less<>> items_;
    std::vector<std::pair<const Command*, MenuItem*>> commandItems_;
    std::vector<std::pair<std::optional<Release>, MenuItem*>> releaseItems_;
    bool splitterDragging_ = false;
    bool resized_ = false;  ///< since the last repaint
    LabelEdit labelEdit_ = LabelEdit::none;
    std::wstring hint_;
    std::wstring note_;
};

}  // namespace blattwart
