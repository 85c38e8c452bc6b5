// Stored column orders: whatever stands in the settings, every column keeps one place of its own.
#include <algorithm>

#include "demo/host/DemoAutomation.h"
#include "Input.h"
#include "support/TestPlatform.h"
#include "views/ListColumns.h"

using namespace blattwart;
using fuzz::require;

namespace {

void requirePermutation(const ListView& list) {
    std::vector<int> places;
    for (const ListColumn& column : list.columns()) places.push_back(column.position);
    std::ranges::sort(places);
    for (std::size_t i = 0; i < places.size(); ++i)
        require(places[i] == static_cast<int>(i), "the places of the columns are a permutation");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    demo::DemoAutomation automation;
    test::TestPlatform world(automation);
    ListView list(world.locale);
    Label title;
    ListColumns columns(list, title, world.platform);
    while (!input.atEnd()) {
        columns.setHeaders(static_cast<ListKind>(1 + fuzz::Input::number<std::uint8_t>(input.line()) % 5));
        const std::wstring stored = input.text();
        ignoringErrors([&] { columns.SetColumnOrder(stored); });
        requirePermutation(list);

        const std::wstring order = columns.GetColumnOrder();
        columns.setHeaders(columns.ListMode);
        columns.SetColumnOrder(order);
        require(columns.GetColumnOrder() == order, "a column order is read as it was written");
    }
    return 0;
}
