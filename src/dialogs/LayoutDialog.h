#pragma once

#include <optional>
#include <string>

#include "autocad/basAutoCAD.h"
#include "controls/Dialog.h"
#include "data/basAllgemein.h"
#include "dialogs/basHTMLHelp.h"
#include "views/basViewControls.h"

namespace blattwart {

/// What the dialogs on layouts work with.
struct LayoutDialogContext {
    basViewControls& views;
    ListView& list;
    basAutoCAD& autoCAD;
    basAllgemein& general;
    basHTMLHelp& help;
    Platform& platform;
};

/// What the dialogs have in common that ask for a layout's name and a number.
class LayoutDialog : public Dialog {
  public:
    explicit LayoutDialog(const LayoutDialogContext& context);

    TextBox txtDokument;  ///< the drawing, shown only
    TextBox txtLayout;    ///< the new name
    TextBox txtAnzahl;    ///< the number
    Button cmdStart;
    Button cmdCancel;

    TextBox* firstField() override { return &txtLayout; }
    void txtLayout_Change() { enableStart(); }
    void txtAnzahl_Change() { enableStart(); }
    /// Return true, and the user has been told, when the field's text is refused.
    bool txtLayout_Validate();
    bool txtAnzahl_Validate();
    /// Does the work and closes, unless an input is refused or AutoCAD does not answer.
    void cmdStart_Click();
    void cmdCancel_Click() { window().close(); }

  protected:
    /// Takes drawing and key of the selected tree node, a drawing or a layout.
    void takeDrawing();
    /// The work itself; `gAcadDoc` is the dialog's drawing. Returns false when an input was refused, and the
    /// user has been told: the dialog stays open then.
    virtual bool start(const std::wstring& name, std::int16_t number) = 0;
    void enableStart();
    const TreeNode* selectedNode() { return context_.views.tree.view().selected(); }
    const LayoutDialogContext& context() const { return context_; }

  private:
    /// The number if it fits; otherwise the user has been told.
    std::optional<std::int16_t> number();
    /// Makes the dialog's drawing `gAcadDoc` if it is found; otherwise the user has been told.
    Lookup takeDocument();

    LayoutDialogContext context_;
    // Of the moment the dialog opened: the selection may change with a refresh.
    std::wstring drawingKey_;
};

}  // namespace blattwart
