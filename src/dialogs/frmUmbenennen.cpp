#include "dialogs/frmUmbenennen.h"

namespace blattwart {

void frmUmbenennen::Form_Load() {
    takeDrawing();
    enableStart();
}

void frmUmbenennen::showHelp() {
    context().help.ShowHelpTopic(helpTopic::renameLayouts);
}

bool frmUmbenennen::start(const std::wstring& name, std::int16_t counter) {
    layouts_.RenameSelectedLayouts(name, counter);
    // The renaming activates nothing in the host.
    ignoringErrors([this] { context().autoCAD.fetchActiveDocument(); });
    return true;
}

}  // namespace blattwart
