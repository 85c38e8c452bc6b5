#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace blattwart {

/// A layout in the order of its drawing's tabs that the user is making.
struct TabOrderEntry {
    int row = 0;  ///< number of the row in the PlanList
    std::wstring name;
    bool selected = false;
};
using TabOrder = std::vector<TabOrderEntry>;

/// The selected layouts move by one place towards the start or the end; those at the edge, and those that
/// stand against them, stay. Return whether anything moved.
bool moveToStart(TabOrder& order);
bool moveToEnd(TabOrder& order);
/// Orders by name, naturally.
void orderByName(TabOrder& order, const Locale& locale);

/// Access to the tab numbers of layouts by their place in the wanted order. Both may throw RuntimeError.
struct TabNumbers {
    std::function<void(std::size_t, std::int32_t)> put;
    std::function<std::int32_t(std::size_t)> get;
};
/// Gives `count` layouts ascending numbers in the wanted order: puts 1 to n, reads them all and, where the
/// host has shifted or refused some, puts them once more by way of numbers that nobody has. A refused put is
/// passed over; a host that is gone or does not answer is thrown. Returns whether the layouts then stand in
/// the wanted order.
bool writeTabOrder(std::size_t count, const TabNumbers& numbers);

}  // namespace blattwart
