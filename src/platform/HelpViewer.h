#pragma once

#include <string>

#include "platform/Desktop.h"

namespace blattwart {

/// The viewer of compiled help files, as its ANSI function takes its arguments.
class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    /// Shows a topic of a help file in a window over `owner`; the viewer deals with a file that it cannot
    /// open. Throws RuntimeError when there is no viewer.
    virtual void displayTopic(WindowHandle owner, const std::string& file, const std::string& topic) = 0;
};

}  // namespace blattwart
