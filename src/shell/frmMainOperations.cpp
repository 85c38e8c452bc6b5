// What the commands of menus, context menus and toolbar do.

#include "dialogs/frmErstellen.h"
#include "dialogs/frmHilfe.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmKopieren.h"
#include "dialogs/frmUmbenennen.h"
#include "planlist/frmPlanliste.h"
#include "shell/frmMain.h"
#include "shell/Modules.h"

namespace blattwart {

NodeKind frmMain::selectedKind() const {
    return modules_->views.tree.selectedKey().kind();
}

bool frmMain::modelSpacePossible() {
    std::wstring drawing;
    ignoringErrors([&] {
        drawing = modules_->files.GetSelectedDrawingFile(selectedKind() == NodeKind::loadedDrawings);
    });
    return !drawing.empty() && modules_->autoCAD.GetActiveLayoutName(drawing) != L"Model";
}

void frmMain::mnuStart_Click() {
    modules_->autoCAD.StartAutoCAD();
}

void frmMain::mnuShow_Click() {
    modules_->autoCAD.BringAutoCADToFront();
}

void frmMain::mnuActive_Click() {
    // Its question would be hidden behind AutoCAD.
    modules_->files.OpenSelectedNode(true);
    modules_->autoCAD.BringAutoCADToFront();
}

void frmMain::mnuDrawing_Click() {
    modules_->files.ActivateSelection(false, false, false);
    modules_->autoCAD.BringAutoCADToFront();
}

void frmMain::active_Click() {
    const NodeKind kind = selectedKind();
    if (kind == NodeKind::loadedDrawings) modules_->files.ActivateSelection(false, false, false);
    if (kind == NodeKind::layout) modules_->files.ActivateSelection(true, false, false);
    modules_->autoCAD.BringAutoCADToFront();
}

void frmMain::mnuModel_Click() {
    modules_->files.SwitchToModelSpace();
}

void frmMain::mnuSave_Click() {
    modules_->files.SaveDrawing(false);
}

void frmMain::mnuSaveAS_Click() {
    modules_->files.SaveDrawing(true);
}

void frmMain::mnuFileClose_Click() {
    modules_->files.CloseDrawing();
}

void frmMain::mnuFileDelete_Click() {
    modules_->layouts.DeleteLayouts();
}

void frmMain::mnuTemplateDelete_Click() {
    modules_->templates.DeleteTemplate();
}

void frmMain::delete_Click() {
    const NodeKind kind = selectedKind();
    if (kind == NodeKind::library || kind == NodeKind::libraryFile) {
        mnuTemplateDelete_Click();
    } else {
        mnuFileDelete_Click();
    }
}

void frmMain::mnuFileRename_Click() {
    const NodeKind kind = selectedKind();
    if (kind == NodeKind::layout) {
        labelEdit_ = LabelEdit::renameLayout;
        tvTreeView.startLabelEdit(tvTreeView.selected()->text());
    } else if (kind == NodeKind::drawing) {
        const auto selected = lvListView.selectedItems();
        if (selected.size() == 1) lvListView.startLabelEdit(*selected.front());
        if (selected.size() > 1) {
            frmUmbenennen dialog(dialogContext(), modules_->layouts);
            dialog.Form_Load();
            modules_->presenter.showModal(dialog);
        }
    }
}

void frmMain::mnuEditCopy_Click() {
    frmKopieren dialog(dialogContext(), modules_->tarvix);
    if (dialog.Form_Load()) modules_->presenter.showModal(dialog);
}

LayoutDialogContext frmMain::dialogContext() {
    return {modules_->views, lvListView, modules_->autoCAD, modules_->general, modules_->help, platform_};
}

void frmMain::mnuCreate_Click() {
    // Only with the root selected is the drawing looked up; with a drawing selected the layout goes into the
    // document that is active already. Required so.
    try {
        std::wstring drawing;
        if (selectedKind() == NodeKind::loadedDrawings)
            drawing = modules_->files.GetSelectedDrawingFile(true);
        const host::Document without = modules_->tarvix.CreateLayout(drawing);
        if (!without) return;
        frmErstellen dialog(dialogContext(), modules_->tarvix, modules_->members, without);
        dialog.Form_Load();
        modules_->presenter.showModal(dialog);
    } catch (const RuntimeError& error) {
        platform_.messages.say(error.description());
    }
}

void frmMain::mnuTemplate_Click() {
    modules_->autoCAD.NewDrawingFromTemplate(
        modules_->files.GetSelectedTemplateFile(selectedKind() == NodeKind::library));
}

void frmMain::mnuFileOpen_Click() {
    const auto file = platform_.fileDialogs.open(L"Öffnen", L"Alle Dateien (*.*)|*.*");
    if (!file) return;
    modules_->files.OpenDroppedFile(*file);
    modules_->views.RefreshTree();
}

void frmMain::mnuTemplateOpen_Click() {
    modules_->files.OpenTemplate(false);
}

void frmMain::mnuLayoutImport_Click() {
    modules_->templates.BeginNewTemplate();
    if (modules_->templates.newTemplatePending()) labelEdit_ = LabelEdit::newTemplate;
}

void frmMain::mnuEditOpen_Click() {
    modules_->files.OpenSelectedNode(true);
}

void frmMain::mnuEditSelectAll_Click() {
    lvListView.selectAll();
}

void frmMain::open_Click() {
    const NodeKind kind = selectedKind();
    if (kind == NodeKind::library) popOpenVorlage_Click();
    if (kind == NodeKind::libraryFile) modules_->files.OpenTemplate(false);
}

void frmMain::designCenter_Click() {
    if (selectedKind() == NodeKind::library) {
        popDCB_Click();
    } else {
        popDCD_Click();
    }
}

void frmMain::popInsert_Click() {
    modules_->files.InsertLayoutFromTemplate();
}

void frmMain::popOpenVorlage_Click() {
    ignoringErrors([this] { platform_.process.start(L"explorer.exe " + modules_->records.TemplateFolder); });
}

void frmMain::popDCB_Click() {
    std::wstring folder;
    ignoringErrors([&] { folder = modules_->database.types().Item(L"1")->Verzeichnis; });
    modules_->autoCAD.NavigateDesignCenter(folder);
}

void frmMain::popDCD_Click() {
    modules_->autoCAD.NavigateDesignCenter(
        modules_->files.GetSelectedTemplateFile(selectedKind() == NodeKind::library));
}

void frmMain::mnuAutoEnd_Click() {
    const bool wanted = !item(L"mnuAutoEnd").checked();
    modules_->registry.SetAutoEnd(wanted ? 1 : 0);
    MnuOptAutoCheck();
    if (item(L"mnuAutoEnd").checked() != wanted) showHint(L"Die Einstellung kann nicht gespeichert werden.");
}

void frmMain::mnuViewRefresh_Click() {
    modules_->autoCAD.ConnectAutoCAD();
    modules_->views.RefreshTree();
}

void frmMain::mnuViewRebuild_Click() {
    modules_->autoCAD.ConnectAutoCAD();
    modules_->views.RebuildTree();
}

void frmMain::mnuPlanList_Click() {
    const NodeKey key = modules_->views.tree.selectedKey();
    const NavigatorRecords& records = modules_->records;
    std::wstring drawing;
    std::wstring layout;
    ignoringErrors([&] {
        const bool ofLayout = key.kind() == NodeKind::layout;
        if (!ofLayout && key.kind() != NodeKind::drawing) return;
        const auto record = (ofLayout ? records.LayoutRecords : records.DrawingRecords).Item(key);
        drawing = record->drawing();
        if (ofLayout) layout = record->Layout;
    });
    modules_->planList.Form_Load(drawing, layout);
    modules_->presenter.showModal(modules_->planList);
    // Whatever was changed meanwhile, here or in AutoCAD: the next tick reads it.
    modules_->gWasForeground = 0;
}

void frmMain::mnuEnd_Click() {
    window_->close();
}

void frmMain::mnuHelpContents_Click() {
    frmHilfe(modules_->help).ShowStartHelp();
}

void frmMain::mnuHelpSearchForHelpOn_Click() {
    modules_->help.ShowHelpTopic(helpTopic::search);
}

void frmMain::mnuHelpAbout_Click() {
    frmInfo dialog(modules_->help, platform_);
    dialog.Form_Load();
    modules_->presenter.showModal(dialog);
}

}  // namespace blattwart
