#pragma once

#include <string>

#include "controls/Dialog.h"
#include "dialogs/basHTMLHelp.h"

namespace blattwart {

/// Tells what the program is, and starts the system's own information tool.
class frmInfo : public Dialog {
  public:
    frmInfo(basHTMLHelp& help, Platform& platform);

    Label lblVersion;
    Label lblBuild;
    Button cmdSysInfo;
    Button cmdOK;

    void Form_Load();
    void showHelp() override;
    /// Starts the tool without waiting for it. When it is not to be found or does not start, the user is
    /// told.
    void StartSysInfo();
    /// Reads a text (types 1 and 2, environment variables as they are) or a 32-bit number, rendered as "&h"
    /// and its hexadecimal digits. Returns whether there is such a value; others, and those of more than 1024
    /// bytes, count as none. The access asked for includes writing, so that plain users find nothing below
    /// the machine's root; required so.
    bool GetKeyValue(RegistryRoot root, const std::string& key, const std::string& name, std::wstring& text);

  private:
    std::wstring toolPath();

    basHTMLHelp& help_;
    Platform& platform_;
};

}  // namespace blattwart
