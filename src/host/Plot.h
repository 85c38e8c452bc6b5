#pragma once

#include "host/HostObject.h"

namespace blattwart::host {

/// Plots a drawing.
class Plot : public HostObject {
  public:
    using HostObject::HostObject;

    /// Whether what goes wrong is noted in a log instead of shown in message boxes, which make the host busy.
    bool QuietErrorMode() const;
    void putQuietErrorMode(bool quiet) const;
    /// Plots the current layout of the drawing, which must be the active one, by another device than its own
    /// unless that is "". Returns what the host says, which is no proof of a file.
    bool PlotToFile(const std::wstring& file, const std::wstring& device) const;
};

}  // namespace blattwart::host
