#pragma once

#include "autocad/basTarvix.h"
#include "dialogs/LayoutDialog.h"

namespace blattwart {

/// Asks how a layout is to be copied, and copies it.
class frmKopieren : public LayoutDialog {
  public:
    frmKopieren(const LayoutDialogContext& context, basTarvix& tarvix);

    TextBox txtQuelle;  ///< the source layout, shown only
    Label lblNeuL;
    Label lblAnzahl;

    /// Fills the fields for the selected tree node, a drawing or a layout. Returns false, and the user has
    /// been told, when a drawing is selected but none of its layouts.
    bool Form_Load();
    void showHelp() override;

  private:
    bool start(const std::wstring& name, std::int16_t copies) override;
    void updateNode();

    basTarvix& tarvix_;
    std::wstring nodeKey_;
};

}  // namespace blattwart
