#pragma once

#include <utility>

#include "planlist/PlanList.h"

/// What reading and checking share.
namespace blattwart {

/// The drawing of a document with folder and name, nothing else of it read. One round trip, two for a drawing
/// never saved.
PlanDrawing openDrawing(const host::Document& document);

/// Reads one fact, which stays as it is where the host refuses it. Throws when the host is silent.
template <class Fact, class Read>
void readFact(Fact& fact, Read&& read) {
    try {
        fact = std::forward<Read>(read)();
    } catch (const RuntimeError& error) {
        if (isSilence(error)) throw;
    }
}

}  // namespace blattwart
