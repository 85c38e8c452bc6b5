#include "shell/basMain.h"

namespace blattwart {

basMain::basMain(Platform& platform, FormPresenter& presenter)
    : general(platform, [this] { return autoCAD.templateFolder(); }),
      registry(platform.registry, platform.locale, platform.files),
      autoCAD(platform, records, *this),
      tarvix(autoCAD, platform),
      members(autoCAD, platform),
      database(platform, registry, [this] { return general.GetTemplateFolder(); }),
      help(platform, [this] { return fMainForm->window().handle(); }),
      planList(autoCAD, presenter, help, platform),
      platform_(platform),
      presenter_(presenter) {
    autoCAD.LoadTypes = [this] { database.LoadTypes(); };
}

bool basMain::Main() {
    // One event: who gives up a host that does not answer is not asked again until the start is done.
    const Gate::Event event(platform_.gate);
    try {
        // The question comes before the test for another instance; required so.
        if (!autoCAD.IsAutoCADRunning()) {
            if (!autoCAD.askToStart()) return false;
            autoCAD.StartAutoCAD();
        }
        gStarted = true;
        if (handOverToPreviousInstance()) return false;
        autoCAD.ConnectAutoCAD();
        database.LoadTypes();
        createMainWindow();
        showMainWindow();
        return true;
    } catch (const RuntimeError& error) {
        platform_.messages.reportError(error.description());
        return false;
    }
}

bool basMain::handOverToPreviousInstance() {
    if (!platform_.process.previousInstance()) return false;
    if (const WindowHandle window = platform_.desktop.findWindow(applicationTitle)) {
        platform_.desktop.showNormal(window);
        platform_.desktop.setForeground(window);
    }
    return true;
}

void basMain::createMainWindow() {
    fMainForm = std::make_unique<frmMain>(platform_);
    gCollection.clear();
    makeNavigator();
    modules_ = std::make_unique<Modules>(Modules{registry, general, autoCAD, tarvix, members, database,
                                                 records, *views, *files, *templates, *layouts, help,
                                                 planList, presenter_, gWasForeground, *this});
    fMainForm->connect(*modules_);
    fMainForm->setWindow(&presenter_.createMainWindow(*fMainForm));
}

void basMain::makeNavigator() {
    TreeView& treeView = fMainForm->tvTreeView;
    ListView& list = fMainForm->lvListView;
    const NavigatorContext context{autoCAD, database, general, records, platform_, *this};
    views = std::make_unique<basViewControls>(treeView, list, fMainForm->lblTitle[1], fMainForm->picPreview,
                                              context);
    files = std::make_unique<basDateien>(views->tree, list, context);
    templates = std::make_unique<TemplateCreation>(views->tree, list, context);
    layouts = std::make_unique<LayoutNames>(views->tree, list, tarvix, members, context);
}

void basMain::showMainWindow() {
    const basAutoCAD::OneLook look(autoCAD);
    frmMain& form = *fMainForm;
    form.Form_Load();
    views->tree.BuildTree();
    views->RefreshTree();
    gWasForeground = 1;
    views->columns.ListMode = ListKind::none;
    views->showSelectedNode();
    views->columns.RestoreColumnOrder(kindLetter(views->tree.selectedKey().kind()));
    views->tree.GetSelectedNodeKind();
    form.MnuOptAutoCheck();
    form.SetTreeViewViewBySetting();
    form.window().show();
}

void basMain::RefreshTree() {
    if (views) views->RefreshTree();
}

void basMain::hostChanged() {
    if (views) views->dropHost();
    planList.dropHost();
}

void basMain::ShowNodeStatus() {
    const NodeKind kind = views->tree.selectedKey().kind();
    std::wstring text;
    if (kind == NodeKind::library || kind == NodeKind::libraryFile) {
        text = records.TemplateFolder;
    } else {
        text = autoCAD.GetActiveDrawingName();
        if (text.empty()) text = L"Keine aktive AutoCAD-Zeichnung !";
    }
    fMainForm->sbStatusBar.setPanelText(1, text);
}

}  // namespace blattwart
