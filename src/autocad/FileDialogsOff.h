#pragma once

#include "autocad/BorrowedSettings.h"

namespace blattwart {

/// While it lives, the host asks for file names in the document's command line instead of opening dialogs
/// ("FILEDIA" is 0). Afterwards "FILEDIA" is 1, whatever it was before; required so.
class FileDialogsOff {
  public:
    /// Throws when the host refuses.
    FileDialogsOff(BorrowedSettings& settings, host::Document document);
    ~FileDialogsOff() { settings_.switchFileDialogsOn(document_); }
    FileDialogsOff(const FileDialogsOff&) = delete;
    FileDialogsOff& operator=(const FileDialogsOff&) = delete;

  private:
    BorrowedSettings& settings_;
    host::Document document_;
};

}  // namespace blattwart
