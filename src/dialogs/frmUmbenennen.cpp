#include "dialogs/frmUmbenennen.h"

namespace blattwart {

void frmUmbenennen::Form_Load() {
    takeDrawing();
    enableStart();
}

void frmUmbenennen::showHelp() {
    context().help.ShowHelpTopic(helpTopic::renameLayouts);
}

void frmUmbenennen::start(const std::wstring& name, std::int16_t counter) {
    layouts_.RenameSelectedLayouts(name, counter);
}

}  // namespace blattwart
