#include "dialogs/frmHilfe.h"

namespace blattwart {

void frmHilfe::ShowStartHelp() {
    help_.ShowHelpTopic(helpTopic::contents);
}

}  // namespace blattwart
