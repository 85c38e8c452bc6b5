#pragma once

#include <vector>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/PlanTransfer.h"

namespace blattwart {

/// Carries the page setup of one layout to others: shows what would change, does it, and stays as a report
/// where not all went through.
class frmPlanEinstellungen : public Dialog {
  public:
    /// From the first of these rows to the others.
    frmPlanEinstellungen(PlanList& plan, PlanTransfer& transfer, std::vector<int> rows, basHTMLHelp& help,
                         Platform& platform);

    TextBox txtVon;  ///< the source, shown only
    ListView lvNach;
    Label lblStatus;
    Button cmdQuelle;
    Button cmdUebertragen;
    Button cmdCancel;

    /// What the operation came to; done with nothing where the user has cancelled.
    const PlanWriteResult& result() const { return result_; }

    Control* firstField() override { return &lvNach; }
    Label* workLabel() override { return &lblStatus; }
    void opened() override;
    void unload() override;
    void step() override;
    void showHelp() override;
    std::function<void()> commandOf(const Shortcut& key, const Control* focused) override;

  private:
    enum class Work { none, reading, writing };

    void readNext();
    void writeNext();
    void show();
    void showState();
    std::wstring statusText() const;
    void cmdQuelle_Click();
    void cmdUebertragen_Click();
    void cancel();

    PlanList& plan_;
    PlanTransfer& transfer_;
    std::vector<int> rows_;
    basHTMLHelp& help_;
    Platform& platform_;
    int source_;
    Work work_ = Work::reading;
    std::size_t read_ = 0;  // rows whose settings are known
    SettingsByRow settings_;
    TransferPreview preview_;
    bool begun_ = false;  // to write
    bool reported_ = false;
    bool closing_ = false;
    std::wstring note_;
    PlanWriteResult result_;
};

}  // namespace blattwart
