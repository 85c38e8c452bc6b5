#include "autocad/PageSetupHidden.h"

namespace blattwart {

PageSetupHidden::PageSetupHidden(basAutoCAD& autoCAD, host::Document document)
    : settings_(autoCAD.borrowed), application_(autoCAD.gAcadApp), document_(std::move(document)) {
    ignoringErrors([this] { settings_.hidePageSetup(application_); });
}

void PageSetupHidden::giveBack() {
    // Whoever does not take it twice gets it at the next attach.
    if (!settings_.giveBack(application_, document_)) settings_.giveBack(application_, document_);
}

}  // namespace blattwart
