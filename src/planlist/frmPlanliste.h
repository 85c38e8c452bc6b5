#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "controls/Dialog.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/frmPlanPdf.h"
#include "planlist/frmPlanReihenfolge.h"
#include "planlist/PlanDialogs.h"
#include "planlist/PlanTransfer.h"
#include "planlist/PlanWriter.h"
#include "planlist/RenamePattern.h"

namespace blattwart {

/// The plan list: the layouts of all loaded drawings in one list. It lives as long as the program; filter,
/// selection, rows and what can be taken back stay from one showing to the next.
class frmPlanliste : public Dialog {
  public:
    frmPlanliste(basAutoCAD& autoCAD, PlanDialogs& dialogs, basHTMLHelp& help, Platform& platform);

    TextBox txtFilter;
    ListView lvPlan;
    Label lblStatus;
    Button cmdUmbenennen;
    Button cmdReihenfolge;
    Button cmdEinstellungen;
    Button cmdPdf;
    Button cmdKopieren;
    Button cmdCsv;
    Button cmdRueckgaengig;
    Button cmdAktualisieren;
    Button cmdClose;
    MenuItem popupMenu;

    /// Before the window is shown: everything is to be read. The focus goes to the layout of this name, or to
    /// the first one, of the drawing with this full name; with "" for the drawing it stays where it was.
    void Form_Load(const std::wstring& drawing, const std::wstring& layout);

    /// Puts back what plotting has changed in the host and a busy host has kept; nothing while a call waits.
    void putHostBack();
    /// Another host is attached: nothing is put back in the last one any more.
    void dropHost() { restore_.dropHost(); }
    /// Whether something is being read or written, in steps.
    bool working() const { return work_ != Work::none; }

    Control* firstField() override { return &lvPlan; }
    Label* workLabel() override { return &lblStatus; }
    void opened() override;
    void unload() override;
    void step() override;
    void showHelp() override;
    std::function<void()> commandOf(const Shortcut& key, const Control* focused) override;

  private:
    enum class Work { none, reading, writing };
    /// A command of the window: what offers it, and when.
    struct Command {
        enum class Needs { nothing, rows, selection, several, undo };
        Button* button;
        const wchar_t* caption;  // in the context menu
        Shortcut shortcut;
        void (frmPlanliste::*run)();
        Needs needs;
        const wchar_t* toolTip;
        bool separatorBefore = false;
        MenuItem* item = nullptr;  // in the context menu
    };

    void listCommands();
    void connectCommands();
    void connectEvents();
    /// What the user does: the note that the event before has left is gone.
    void handle(const std::function<void()>& work);
    bool isPossible(Command::Needs needs) const;
    void showState();
    std::wstring statusText() const;
    std::wstring emptyText() const;

    void columnClick(int column);
    void afterLabelEdit(const std::wstring& name);
    void fill();
    void focusWanted();
    bool isWanted(const PlanDrawing& drawing) const;
    std::vector<int> selectedRows() const;
    std::vector<std::wstring> selectedDrawings();

    void beginReading();
    void goOnReading();
    void beginWriting(PlanGroup& group, const wchar_t* text);
    void goOnReadingPapers();
    void goOnWriting();
    void tell(const PlanWriteResult& result);
    void escape();
    void close();

    // Commands.
    void showInAutoCAD();
    void rename();
    void order(frmPlanReihenfolge::FirstStep step);
    void order() { order(frmPlanReihenfolge::FirstStep::none); }
    void carryPageSetup();
    void makePdf();
    void copy();
    void saveCsv();
    void saveDrawings();
    void selectAll();
    void undo();
    void refresh();

    basAutoCAD& autoCAD_;
    PlanDialogs& dialogs_;
    basHTMLHelp& help_;
    Platform& platform_;
    PlanList plan_;
    PlanReader reader_;
    PlanUndo undo_;
    PlanWriter writer_;
    PlanOrder order_;
    PlanTransfer transfer_;
    PlanRestore restore_;
    PdfRun pdf_;
    PlanGroup* group_ = &writer_;  // the one that is being or was done last
    std::optional<PdfChoice> pdfChoice_;
    RenamePattern pattern_;
    std::vector<Command> commands_;  // showing in AutoCAD first
    Work work_ = Work::none;
    std::wstring workText_;  // of writing
    std::wstring note_;      // of the last event
    std::wstring wantedDrawing_;
    std::wstring wantedLayout_;
    bool closing_ = false;
};

}  // namespace blattwart
