#pragma once

#include <string>
#include <vector>

#include "planlist/PlanReader.h"

namespace blattwart {

/// How a group of changes ended.
struct PlanWriteResult {
    enum class End {
        done,
        commandRunning,  ///< nothing more was done: a command is running in the host
        changedInHost,   ///< nothing was done: the host is not as the list said; see `drawings`
        noAnswer,        ///< nothing more was done: the host does not answer
        cancelled,       ///< the user ended it between two drawings, or before the first
        refused,         ///< a drawing could not be changed; see `refusal`
        partly,          ///< of taking back: some drawings do not fit; see `reasons`
        otherwise        ///< done, but the host has made something else of it; see `reasons`
    };
    struct Refusal {
        std::wstring drawing;  ///< its shown name
        std::wstring from;
        std::wstring to;
        std::wstring reason;                 ///< the host's text
        bool takenBack = true;               ///< the drawing has its old names again
        std::vector<std::wstring> namesNow;  ///< where it has not: of the layouts concerned

        std::wstring text() const;
    };

    /// What the check before a group came to: done when the group may begin.
    static PlanWriteResult of(const PlanReader::Check& check);

    End end = End::done;
    bool undoing = false;
    bool remains = false;   ///< something is left of the operation that can be taken back
    std::wstring what;      ///< the operation, as PlanUndoEntry::text says it
    std::wstring doneText;  ///< what the status line says when all is done
    int done = 0;           ///< layouts
    int chosen = 0;         ///< layouts that were to be changed
    std::vector<std::wstring> drawings;
    Refusal refusal;
    std::vector<std::wstring>
        reasons;  ///< lines for the user: why drawings were left as they are, or what is

    /// What a message box says; "" when the status line is enough.
    std::wstring message() const;
    /// What the status line says; "" for nothing new.
    std::wstring statusText() const;
};

}  // namespace blattwart
