#pragma once

#include <map>
#include <set>
#include <vector>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/PdfNames.h"
#include "planlist/PdfRun.h"

namespace blattwart {

/// How the user has layouts plotted; folder for this run of the program, the rest kept beyond.
struct PdfChoice {
    std::wstring folder;  ///< "" beside each drawing
    std::wstring pattern;
    bool otherDevices = false;  ///< other devices are replaced by the one for PDF files
};
PdfChoice storedPdfChoice(const Settings& settings);

/// Plots layouts to PDF files: names by a pattern, the plotting with its progress, and what became of each.
class frmPlanPdf : public Dialog {
  public:
    /// Begins with `choice`, which keeps what the user has chosen.
    frmPlanPdf(PlanList& plan, PdfRun& run, std::vector<int> rows, PdfChoice& choice, basHTMLHelp& help,
               Platform& platform);

    TextBox txtOrdner;
    Button cmdDurchsuchen;
    TextBox txtName;
    CheckBox chkAndere;
    ListView lvLayouts;
    Label lblStatus;
    Button cmdPlotten;
    Button cmdOrdner;
    Button cmdCancel;

    Control* firstField() override { return &lvLayouts; }
    Label* workLabel() override;
    const Button* interruptButton() const override;
    void interrupt() override;
    void opened() override;
    void unload() override;
    void step() override;
    void showHelp() override;
    std::function<void()> commandOf(const Shortcut& key, const Control* focused) override;

  private:
    /// A layout as it would be plotted.
    struct Sheet {
        PdfSheet plan;
        std::wstring conflict;
        bool leftOut = false;  // its device makes no PDF files
        bool exists = false;
    };
    /// What is known of a target folder.
    struct Folder {
        std::wstring conflict;
        std::set<std::wstring> files;  // names in upper case
    };

    void takeFields();
    bool isLeftOut(int row) const;
    bool makesPdf(const PlanRow& row) const;
    std::vector<PdfName> fileNames() const;
    void lookAtFolders();
    const Folder& folderOf(const std::wstring& path);
    void plan();
    Sheet sheetOf(const PdfName& name) const;
    void show();
    void showState();
    std::wstring textOf(const Sheet& sheet) const;
    std::wstring statusText() const;
    bool possible() const;
    std::wstring targetFolder();

    void cmdDurchsuchen_Click();
    void cmdPlotten_Click();
    void cmdOrdner_Click();
    void cancel();
    void copy();

    PlanList& plan_;
    PdfRun& run_;
    std::vector<int> rows_;
    PdfChoice& choice_;
    basHTMLHelp& help_;
    Platform& platform_;
    std::map<std::wstring, Folder> folders_;  // by path in upper case
    std::vector<Sheet> sheets_;
    bool reported_ = false;  // the list holds results
};

}  // namespace blattwart
