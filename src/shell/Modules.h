#pragma once

#include <cstdint>
#include <functional>

#include "autocad/basAutoCAD.h"
#include "data/basRegistry.h"
#include "views/basViewControls.h"

namespace blattwart {

/// What the main window's handlers work with. basMain owns it all.
struct Modules {
    basRegistry& registry;
    basAutoCAD& autoCAD;
    basViewControls& views;
    /// 1 while the main window was the foreground window at the last look, else 0.
    std::int16_t& gWasForeground;
    std::function<void()> ShowNodeStatus;
};

}  // namespace blattwart
