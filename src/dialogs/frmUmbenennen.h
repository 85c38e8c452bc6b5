#pragma once

#include "dialogs/LayoutDialog.h"
#include "views/LayoutNames.h"

namespace blattwart {

/// Asks for a name and the first number for the layouts selected in the list, and renames them.
class frmUmbenennen : public LayoutDialog {
  public:
    frmUmbenennen(const LayoutDialogContext& context, LayoutNames& layouts)
        : LayoutDialog(context), layouts_(layouts) {}

    /// Fills the fields for the selected tree node, a drawing or a layout.
    void Form_Load();
    void showHelp() override;

  private:
    bool start(const std::wstring& name, std::int16_t counter) override;

    LayoutNames& layouts_;
};

}  // namespace blattwart
