#pragma once

#include "autocad/basAutoCAD.h"
#include "data/basAllgemein.h"
#include "data/basDatenbank.h"
#include "data/NavigatorEvents.h"

namespace blattwart {

/// What the parts of the navigator work on besides their controls.
struct NavigatorContext {
    basAutoCAD& autoCAD;
    basDatenbank& database;
    basAllgemein& general;
    NavigatorRecords& records;
    Platform& platform;
    NavigatorEvents& events;
};

}  // namespace blattwart
