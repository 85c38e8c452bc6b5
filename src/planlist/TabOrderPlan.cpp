#include "planlist/TabOrderPlan.h"

#include <algorithm>

#include "platform/Automation.h"

namespace blattwart {

namespace {

/// Moves each selected entry one place towards `begin`, unless what is there does not move out of the way.
template <class Iterator>
bool move(Iterator begin, Iterator end) {
    bool moved = false;
    if (begin == end) return false;
    for (auto entry = std::next(begin); entry != end; ++entry) {
        const auto before = std::prev(entry);
        if (!entry->selected || before->selected) continue;
        std::iter_swap(entry, before);
        moved = true;
    }
    return moved;
}

void putAll(std::size_t count, std::int32_t from, const TabNumbers& numbers) {
    for (std::size_t i = 0; i < count; ++i) {
        try {
            numbers.put(i, from + static_cast<std::int32_t>(i));
        } catch (const RuntimeError& error) {
            if (isSilence(error)) throw;
        }
    }
}

std::vector<std::int32_t> readAll(std::size_t count, const TabNumbers& numbers) {
    std::vector<std::int32_t> read;
    for (std::size_t i = 0; i < count; ++i) read.push_back(numbers.get(i));
    return read;
}

bool ascends(const std::vector<std::int32_t>& numbers) {
    return std::ranges::adjacent_find(numbers, std::ranges::greater_equal()) == numbers.end();
}

}  // namespace

bool moveToStart(TabOrder& order) {
    return move(order.begin(), order.end());
}

bool moveToEnd(TabOrder& order) {
    return move(order.rbegin(), order.rend());
}

void orderByName(TabOrder& order, const Locale& locale) {
    std::ranges::stable_sort(order, [&](const TabOrderEntry& a, const TabOrderEntry& b) {
        return locale.compareNaturally(a.name, b.name) < 0;
    });
}

bool writeTabOrder(std::size_t count, const TabNumbers& numbers) {
    putAll(count, 1, numbers);
    std::vector<std::int32_t> read = readAll(count, numbers);
    if (ascends(read)) return true;
    const auto highest = std::max(static_cast<std::int32_t>(count), *std::ranges::max_element(read));
    putAll(count, highest + 1, numbers);
    putAll(count, 1, numbers);
    return ascends(readAll(count, numbers));
}

}  // namespace blattwart
