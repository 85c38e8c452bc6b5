#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "autocad/basAutoCAD.h"
#include "data/basAllgemein.h"
#include "data/basDatenbank.h"
#include "data/basRegistry.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/frmPlanliste.h"
#include "shell/FormPresenter.h"
#include "shell/frmMain.h"
#include "shell/Modules.h"
#include "views/basViewControls.h"

namespace blattwart {

/// The program: owns all modules and forms, wires them, and starts.
class basMain : private NavigatorEvents {
  public:
    basMain(Platform& platform, FormPresenter& presenter);

    /// The start-up procedure. Returns whether the program goes on with its main window; otherwise it ends.
    bool Main();

    /// 1 while the main window was the foreground window at the last look of the watchdog, else 0.
    std::int16_t gWasForeground = 0;
    /// Set early in Main; nothing reads it.
    bool gStarted = false;
    /// General purpose; empty from the start.
    std::vector<Value> gCollection;
    NavigatorRecords records;
    basAllgemein general;
    basRegistry registry;
    basAutoCAD autoCAD;
    basTarvix tarvix;
    LayoutMembers members;
    basDatenbank database;
    basHTMLHelp help;
    frmPlanliste planList;
    std::unique_ptr<frmMain> fMainForm;
    // What works in the main window; made with it.
    std::unique_ptr<basViewControls> views;
    std::unique_ptr<basDateien> files;
    std::unique_ptr<TemplateCreation> templates;
    std::unique_ptr<LayoutNames> layouts;

  private:
    bool handOverToPreviousInstance();
    void createMainWindow();
    void makeNavigator();
    void showMainWindow();

    void RefreshTree() override;
    void hostChanged() override;
    void ShowNodeStatus() override;
    void showSelectedNode() override { views->showSelectedNode(); }
    void setDragMode() override { fMainForm->setDragMode(); }
    void VisbibleMnuMenu() override { fMainForm->VisbibleMnuMenu(); }
    void showHint(const std::wstring& text) override { fMainForm->showHint(text); }
    void showNote(const std::wstring& text) override { fMainForm->showNote(text); }

    Platform& platform_;
    FormPresenter& presenter_;
    std::unique_ptr<Modules> modules_;
};

}  // namespace blattwart
