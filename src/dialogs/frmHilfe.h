#pragma once

#include "dialogs/basHTMLHelp.h"

namespace blattwart {

/// The help as it is shown at first. It has no window of its own.
class frmHilfe {
  public:
    explicit frmHilfe(basHTMLHelp& help) : help_(help) {}

    void ShowStartHelp();

  private:
    basHTMLHelp& help_;
};

}  // namespace blattwart
