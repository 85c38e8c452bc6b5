#pragma once

#include <vector>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "dialogs/basHTMLHelp.h"
#include "planlist/PlanWriter.h"
#include "planlist/RenamePattern.h"

namespace blattwart {

/// Asks for the pattern by which layouts are renamed, and shows what would come of it.
class frmPlanUmbenennen : public Dialog {
  public:
    /// For these rows of the list, in the order in which they are counted. Begins with `pattern`, which keeps
    /// what the user has entered.
    frmPlanUmbenennen(PlanList& plan, std::vector<int> rows, RenamePattern& pattern, basHTMLHelp& help,
                      Platform& platform);

    TextBox txtMuster;
    TextBox txtSuchen;
    TextBox txtErsetzen;
    TextBox txtAb;
    TextBox txtSchritt;
    TextBox txtStellen;
    CheckBox chkNeuBeginnen;
    ListView lvVorschau;
    Label lblStatus;
    Button cmdUmbenennen;
    Button cmdCancel;

    /// The names to be given; none when the user has cancelled.
    const std::vector<PlanWriter::NewName>& names() const { return names_; }

    Control* firstField() override { return &txtMuster; }
    void showHelp() override;

  private:
    void takeFields();
    void showPreview();
    void cmdUmbenennen_Click();

    PlanList& plan_;
    std::vector<int> rows_;
    RenamePattern& pattern_;
    basHTMLHelp& help_;
    const Locale& locale_;
    RenamePreview preview_;
    std::vector<PlanWriter::NewName> names_;
};

}  // namespace blattwart
