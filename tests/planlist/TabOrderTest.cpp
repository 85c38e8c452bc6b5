#include <random>

#include "planlist/TabOrderPlan.h"
#include "PlanWorld.h"

namespace blattwart::test {

namespace {

TEST(TabOrderTest, EveryOrderIsReachedWhateverTheHostMakesOfDoubles) {
    std::mt19937 random(7);
    using demo::TabNumbers;
    for (const TabNumbers manner : {TabNumbers::shift, TabNumbers::store, TabNumbers::refuse}) {
        PlanWorld world({.tabNumbers = manner});
        world.open(L"C:\\P", L"A.dwg", {L"a", L"b", L"c", L"d", L"e", L"f"});
        world.read();
        std::vector<host::Layout> order;
        for (const PlanRow& row : world.plan.drawings().front().rows) order.push_back(row.layout);
        const blattwart::TabNumbers numbers{
            [&](std::size_t i, std::int32_t number) { order[i].putTabOrder(number); },
            [&](std::size_t i) { return order[i].TabOrder(); }};
        for (int turn = 0; turn < 20; ++turn) {
            std::ranges::shuffle(order, random);
            EXPECT_TRUE(writeTabOrder(order.size(), numbers));
            Names wanted;
            for (const host::Layout& layout : order) wanted.push_back(layout.Name());
            world.read();
            Names shown;
            for (const PlanRow& row : world.plan.drawings().front().rows) shown.push_back(row.name);
            EXPECT_EQ(shown, wanted);
        }
        world.calls.clear();
        EXPECT_TRUE(writeTabOrder(order.size(), numbers));
        EXPECT_EQ(world.calls.count(), 2 * order.size()) << "no repair where none is needed";
    }
}

TEST(TabOrderTest, ChosenLayoutsMoveTogetherAndStopAtTheEdge) {
    TabOrder order;
    for (const wchar_t* name : {L"b", L"A10", L"c", L"A2", L"d"})
        order.push_back({.row = 0, .name = name, .selected = *name == L'A'});
    const auto names = [&] {
        std::wstring text;
        for (const TabOrderEntry& entry : order) text += entry.name + L" ";
        return text;
    };
    EXPECT_TRUE(moveToStart(order));
    EXPECT_EQ(names(), L"A10 b A2 c d ");
    EXPECT_TRUE(moveToStart(order));
    EXPECT_EQ(names(), L"A10 A2 b c d ");
    EXPECT_FALSE(moveToStart(order));
    EXPECT_TRUE(moveToEnd(order));
    EXPECT_EQ(names(), L"b A10 A2 c d ");
    while (moveToEnd(order)) {
    }
    EXPECT_EQ(names(), L"b c d A10 A2 ");
    orderByName(order, GermanLocale());
    EXPECT_EQ(names(), L"A2 A10 b c d ");
}

}  // namespace

}  // namespace blattwart::test
