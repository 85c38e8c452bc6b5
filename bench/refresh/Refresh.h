#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>

#include "platform/Automation.h"

namespace blattwart::bench {

/// What one refresh of the navigator costs that finds nothing changed, the library root selected.
struct RefreshCost {
    std::size_t calls = 0;    ///< of the host, those of the database not counted
    double milliseconds = 0;  ///< median of several refreshes, the database included
};

/// Starts the program on the host behind `host`, with the demonstration's database, which is written into
/// `folder`. `beforeLast` and `afterLast` enclose the last of the refreshes measured.
RefreshCost measureRefresh(Automation& host, const std::filesystem::path& folder,
                           const std::function<void()>& beforeLast, const std::function<void()>& afterLast);

/// Time of one call of the host that does nothing, milliseconds.
double measureEmptyCall(Automation& host);

/// Heading and one line of the table.
void printHeading(const char* title, double emptyCall);
void printLine(std::size_t drawings, std::size_t layouts, const RefreshCost& cost, double emptyCall,
               int messages);

inline constexpr std::size_t drawingCounts[] = {1, 10, 50};
inline constexpr std::size_t layoutsEach = 20;

}  // namespace blattwart::bench
