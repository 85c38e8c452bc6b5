#pragma once

#include "autocad/basAutoCAD.h"

namespace blattwart {

/// While it lives, layouts that the attached host shows for the first time open no page setup, as far as the
/// host lets itself be told so. What the user has set there comes back on every path.
class PageSetupHidden {
  public:
    PageSetupHidden(basAutoCAD& autoCAD, host::Document document);
    ~PageSetupHidden() { giveBack(); }
    PageSetupHidden(const PageSetupHidden&) = delete;
    PageSetupHidden& operator=(const PageSetupHidden&) = delete;

  private:
    void giveBack();

    BorrowedSettings& settings_;
    host::Application application_;
    host::Document document_;
};

}  // namespace blattwart
