#include "dialogs/basHTMLHelp.h"

namespace blattwart {

void basHTMLHelp::ShowHelpTopic(std::wstring_view topic) {
    const Locale& locale = platform_.locale;
    platform_.help.displayTopic(owner_(),
                                locale.toAnsi(platform_.files.applicationFolder() + L"\\Help\\Tarvix.chm"),
                                locale.toAnsi(std::wstring(topic) + L".htm"));
}

}  // namespace blattwart
