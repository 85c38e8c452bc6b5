#include "shell/frmMain.h"

#include "planlist/frmPlanliste.h"
#include "platform/Conversions.h"
#include "platform/NumberSetting.h"
#include "shell/Modules.h"

namespace blattwart {

namespace {

// Twips.
constexpr float minimumWindowWidth = 3000;
constexpr float minimumPaneWidth = 1500;
constexpr float splitterLimit = 500;
constexpr float paneGap = 40;
constexpr float horizontalAllowance = 140;
constexpr float titleInset = 20;
constexpr float titleShortening = 40;
constexpr float splitterBarShortening = 20;
constexpr float initialTreeWidth = 2600;

constexpr int viewModes = 4;
constexpr int firstModeButton = 14;

}  // namespace

frmMain::frmMain(Platform& platform) : lvListView(platform.locale), platform_(platform) {
    lblTitle[0].setText(L"Zeichnungen und Vorlagen:");
    imgSplitter.setLeft(initialTreeWidth);
    picSplitter.setVisible(false);
    buildCommands();
    item(L"mnuViewToolbar").setChecked(true);
    item(L"mnuViewStatusBar").setChecked(true);
    connectEvents();
}

void frmMain::Form_Load() {
    const Settings& settings = platform_.settings;
    Placement placement;
    placement.left = realSetting(settings, L"MainLeft", L"1000");
    placement.top = realSetting(settings, L"MainTop", L"1000");
    placement.width = realSetting(settings, L"MainWidth", L"6500");
    placement.height = realSetting(settings, L"MainHeight", L"6500");
    window_->setPlacement(placement);
    modules_->views.columns.LoadColumnWidths();
}

void frmMain::Form_Activate() {
    handle([this] {
        // Who comes back has everything read anew; the list is part of it.
        if (modules_->gWasForeground == 0 && !editing()) return CheckAutoCAD();
        const basAutoCAD::OneLook look(modules_->autoCAD);
        VisbibleMnuMenu();
        modules_->views.showSelectedNode();
    });
}

void frmMain::Form_Resize() {
    if (window_->minimised()) return;
    ignoringErrors([this] {
        if (window_->width() < minimumWindowWidth) window_->setWidth(minimumWindowWidth);
    });
    ignoringErrors([this] { SizeControls(imgSplitter.left()); });
    resized_ = true;
}

void frmMain::Form_Paint() {
    resized_ = false;
}

void frmMain::SizeControls(float x) {
    const float width = window_->width();
    if (x < minimumPaneWidth) x = minimumPaneWidth;
    if (x > width - minimumPaneWidth) x = width - minimumPaneWidth;

    tvTreeView.setWidth(x);
    imgSplitter.setLeft(x);
    lvListView.setLeft(x + paneGap);
    lvListView.setWidth(width - (x + horizontalAllowance));
    lblTitle[0].setWidth(x);
    lblTitle[1].setLeft(lvListView.left() + titleInset);
    lblTitle[1].setWidth(lvListView.width() - titleShortening);

    picTitles.setTop(tbToolBar.visible() ? tbToolBar.height() : 0);
    const float top = picTitles.top() + picTitles.height();
    const float statusHeight = sbStatusBar.visible() ? sbStatusBar.height() : 0;
    const float height = window_->innerHeight() - (top + statusHeight);
    tvTreeView.setTop(top);
    if (height >= 0) tvTreeView.setHeight(height);
    for (Control* control : {static_cast<Control*>(&lvListView), &imgSplitter}) {
        control->setTop(tvTreeView.top());
        control->setHeight(tvTreeView.height());
    }
}

void frmMain::imgSplitter_MouseDown() {
    picSplitter.setLeft(imgSplitter.left());
    picSplitter.setTop(imgSplitter.top());
    const std::int32_t halfWidth = toInt32(static_cast<double>(imgSplitter.width())) / 2;
    picSplitter.setWidth(static_cast<float>(halfWidth));
    ignoringErrors([this] { picSplitter.setHeight(imgSplitter.height() - splitterBarShortening); });
    picSplitter.setVisible(true);
    splitterDragging_ = true;
}

void frmMain::imgSplitter_MouseMove(float x) {
    if (!splitterDragging_) return;
    const float rightLimit = window_->width() - splitterLimit;
    const float position = x + imgSplitter.left();
    picSplitter.setLeft(position < splitterLimit ? splitterLimit
                        : position > rightLimit  ? rightLimit
                                                 : position);
}

void frmMain::imgSplitter_MouseUp() {
    SizeControls(picSplitter.left());
    picSplitter.setVisible(false);
    splitterDragging_ = false;
}

void frmMain::mnuViewToolbar_Click() {
    MenuItem& entry = item(L"mnuViewToolbar");
    entry.setChecked(!entry.checked());
    tbToolBar.setVisible(entry.checked());
    SizeControls(imgSplitter.left());
}

void frmMain::mnuViewStatusBar_Click() {
    MenuItem& entry = item(L"mnuViewStatusBar");
    entry.setChecked(!entry.checked());
    sbStatusBar.setVisible(entry.checked());
    SizeControls(imgSplitter.left());
}

void frmMain::SetListViewMode(ListViewMode mode) {
    // The list asks for what it shows, so its entries need no adapting to the mode.
    lvListView.setMode(mode);
    const int number = static_cast<int>(mode);
    ignoringErrors([&] { platform_.settings.set(L"ViewMode", std::to_wstring(number)); });
    for (int i = 0; i < viewModes; ++i) {
        const std::wstring index = L"(" + std::to_wstring(i) + L")";
        for (const wchar_t* name :
             {L"popListViewModeD", L"popListViewModeZ", L"popListViewModeL", L"mnuListViewMode"})
            item(name + index).setChecked(i == number);
        tbToolBar.setButtonPressed(firstModeButton + i, i == number);
    }
}

void frmMain::SetTreeViewViewBySetting() {
    ignoringErrors([this] {
        const int mode = toInt16(numericPrefix(platform_.settings.get(L"ViewMode", L"0")));
        if (mode >= 0 && mode < viewModes) lvListView.setMode(static_cast<ListViewMode>(mode));
    });
    SetListViewMode(lvListView.mode());
}

void frmMain::MnuOptAutoCheck() {
    item(L"mnuAutoEnd").setChecked(modules_->registry.GetAutoEnd() == 1);
}

void frmMain::Form_Unload() {
    ListColumns& columns = modules_->views.columns;
    columns.leave();
    modules_->presenter.closeDialogs();
    modules_->planList.putHostBack();
    if (!window_->minimised()) {
        const Placement placement = window_->placement();
        const auto save = [this](std::wstring_view key, float twips) {
            ignoringErrors([&] { platform_.settings.set(key, plainText(twips)); });
        };
        save(L"MainLeft", placement.left);
        save(L"MainTop", placement.top);
        save(L"MainWidth", placement.width);
        save(L"MainHeight", placement.height);
    }
    // Buttons 8 to 11, not those of the view modes; required so, and harmless while none of them stays
    // pressed.
    for (int index = 8; index <= 11; ++index)
        if (tbToolBar.button(index).pressed)
            ignoringErrors([&] { platform_.settings.set(L"ViewMode", std::to_wstring(index - 8)); });
    columns.SaveColumnWidths();
}

void frmMain::showHint(const std::wstring& text) {
    hint_ = text;
    showSecondPanel();
}

void frmMain::showNote(const std::wstring& text) {
    note_ = text;
    showSecondPanel();
}

void frmMain::ctlTimer_Timer() {
    // A refresh would tear a label away from the user who is typing.
    if (editing()) return;
    step([this] { CheckAutoCAD(); });
}

void frmMain::CheckAutoCAD() {
    if (platform_.desktop.foreground() != window_->handle()) {
        modules_->gWasForeground = 0;
        return;
    }
    if (modules_->gWasForeground == 1) return;
    showHint({});
    basAutoCAD& autoCAD = modules_->autoCAD;
    if (!autoCAD.IsAutoCADRunning()) {
        if (!autoCAD.askToStart()) {
            platform_.process.end();
            return;
        }
        autoCAD.StartAutoCAD();
    }
    autoCAD.ConnectAutoCAD();
    modules_->views.RefreshTree();
    modules_->gWasForeground = 1;
}

}  // namespace blattwart
