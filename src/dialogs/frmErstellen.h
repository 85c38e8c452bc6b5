#pragma once

#include <set>

#include "autocad/basTarvix.h"
#include "autocad/LayoutMembers.h"
#include "dialogs/LayoutDialog.h"

namespace blattwart {

/// Asks for the name of a new layout and creates it without the macro project.
class frmErstellen : public Dialog {
  public:
    frmErstellen(const LayoutDialogContext& context, basTarvix& tarvix, LayoutMembers& members,
                 host::Document document);

    TextBox txtDokument;  ///< the drawing, shown only
    TextBox txtLayout;    ///< the new name
    Button cmdStart;
    Button cmdCancel;

    /// Shows the drawing and proposes the name that AutoCAD would give.
    void Form_Load();
    TextBox* firstField() override { return &txtLayout; }
    void showHelp() override;
    void txtLayout_Change() { cmdStart.setEnabled(!name().empty()); }
    /// Returns true, and the user has been told, when AutoCAD would refuse the name.
    bool txtLayout_Validate();
    /// Creates the layout, brings AutoCAD to the front and closes, unless the name is refused.
    void cmdStart_Click();
    void cmdCancel_Click() { window().close(); }

  private:
    /// Without blanks at its ends, which AutoCAD cuts off.
    std::wstring name() const;

    LayoutDialogContext context_;
    basTarvix& tarvix_;
    LayoutMembers& members_;
    host::Document document_;
    std::set<std::wstring> names_;  // taken, in upper case
};

}  // namespace blattwart
