#pragma once

#include <iosfwd>
#include <span>

#include "ProgramOnHost.h"

namespace blattwart::test {

/// One operation of the user's that has to do with the host.
struct Operation {
    std::wstring place;   ///< a node of places()
    std::wstring action;  ///< one of actions()
    /// What he clicks in the plan list, when that opens, all its rows being selected.
    Button frmPlanliste::*inPlanList = &frmPlanliste::cmdClose;
};
void PrintTo(const Operation& operation, std::ostream* stream);

/// All of them. Each answers one question with Yes at most.
std::span<const Operation> operations();
/// The first of them.
const Operation& refreshing();
/// The last: all layouts are plotted, four of two drawings.
const Operation& plotting();

/// The same in parts, each for a test of its own.
inline constexpr std::size_t operationParts = 5;
std::span<const Operation> operations(std::size_t part);

/// Goes where the operation begins.
void prepare(ProgramOnHost& program, const Operation& operation);
/// Does it; what it takes in milliseconds.
std::int64_t perform(ProgramOnHost& program, const Operation& operation);

}  // namespace blattwart::test
