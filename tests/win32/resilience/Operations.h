#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "ProgramOnHost.h"

namespace blattwart::test {

/// One operation of the user's: where he stands before, and what he does.
struct Operation {
    const char* name;
    std::wstring node;
    std::vector<std::wstring> items;  ///< selected in the list
    std::function<void(ProgramOnHost&)> run;
};

/// All operations that have to do with the host. Each answers one question with Yes at most.
const std::vector<Operation>& operations();
/// One of them: all layouts are plotted, four of two drawings.
Operation plotting();

/// The same in parts, each for a test of its own.
inline constexpr std::size_t operationParts = 5;
std::span<const Operation> operations(std::size_t part);

/// Goes where the operation begins.
void prepare(ProgramOnHost& program, const Operation& operation);

}  // namespace blattwart::test
