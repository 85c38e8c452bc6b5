#pragma once

#include "autocad/basAutoCAD.h"

namespace blattwart {

/// While it lives, the host asks for file names in the document's command line instead of opening dialogs
/// ("FILEDIA" is 0). Afterwards "FILEDIA" is 1, whatever it was before; required so.
class FileDialogsOff {
  public:
    /// Throws when the host refuses.
    FileDialogsOff(basAutoCAD& autoCAD, host::Document document);
    ~FileDialogsOff() { autoCAD_.switchFileDialogsOn(document_); }
    FileDialogsOff(const FileDialogsOff&) = delete;
    FileDialogsOff& operator=(const FileDialogsOff&) = delete;

  private:
    basAutoCAD& autoCAD_;
    host::Document document_;
};

}  // namespace blattwart
