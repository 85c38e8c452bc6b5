#include "autocad/FileDialogsOff.h"

namespace blattwart {

FileDialogsOff::FileDialogsOff(basAutoCAD& autoCAD, host::Document document)
    : autoCAD_(autoCAD), document_(std::move(document)) {
    try {
        document_.SetVariable(L"FILEDIA", 0);
    } catch (const RuntimeError&) {
        // The host may have taken the value although its answer was lost.
        autoCAD_.switchFileDialogsOn(document_);
        throw;
    }
}

}  // namespace blattwart
