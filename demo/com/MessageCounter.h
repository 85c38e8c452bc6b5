#pragma once

#include <memory>

#include "com/Exporter.h"

namespace demo {

/// Counts all that comes into this process from now on in the exporter's counters. It stays until the process
/// ends, as COM lets nobody take a hook back.
void countMessages(std::shared_ptr<Exporter> exporter);

}  // namespace demo
