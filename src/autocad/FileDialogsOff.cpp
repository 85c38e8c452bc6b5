#include "autocad/FileDialogsOff.h"

namespace blattwart {

FileDialogsOff::FileDialogsOff(BorrowedSettings& settings, host::Document document)
    : settings_(settings), document_(std::move(document)) {
    try {
        settings_.switchFileDialogsOff(document_);
    } catch (const RuntimeError&) {
        // The host may have taken the value although its answer was lost.
        settings_.switchFileDialogsOn(document_);
        throw;
    }
}

}  // namespace blattwart
