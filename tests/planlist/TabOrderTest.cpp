#include <array>
#include <random>

#include "planlist/TabOrderPlan.h"
#include "PlanWorld.h"

namespace blattwart::test {

namespace {

/// Two drawings whose layouts are put in another order.
class Ordering : public PlanWorld {
  public:
    explicit Ordering(demo::TabNumbers manner) : PlanWorld({.tabNumbers = manner}) {
        documents = {open(L"C:\\P", L"A.dwg", {L"b", L"a", L"c", L"d", L"e", L"f"}),
                     open(L"C:\\P", L"B.dwg", {L"x", L"y", L"z"})};
        read();
        calls.clear();
    }
    std::vector<Names> now() const { return {tabs(documents[0]), tabs(documents[1])}; }
    void begin(const std::vector<Names>& wanted) {
        order.begin({{plan.drawings()[0].identity, wanted[0]}, {plan.drawings()[1].identity, wanted[1]}});
    }
    PlanGroup& group() { return order; }
    std::vector<Names> shown() {
        std::vector<Names> names(2);
        for (std::size_t d = 0; d < 2; ++d)
            for (const PlanRow& row : plan.drawings()[d].rows) names[d].push_back(row.name);
        return names;
    }

    std::vector<demo::DocumentPtr> documents;
};

constexpr std::array manners{demo::TabNumbers::shift, demo::TabNumbers::store, demo::TabNumbers::refuse};

TEST(TabOrderTest, EveryOrderIsReachedAndGoesBackWhateverTheHostMakesOfDoubles) {
    std::mt19937 random(7);
    for (const demo::TabNumbers manner : manners) {
        Ordering world(manner);
        for (int turn = 0; turn < 20; ++turn) {
            const std::vector<Names> before = world.now();
            std::vector<Names> wanted = before;
            for (Names& names : wanted) std::ranges::shuffle(names, random);
            world.calls.clear();
            world.begin(wanted);
            PlanWorld::finish(world.order);
            EXPECT_EQ(world.now(), wanted);
            EXPECT_EQ(world.shown(), wanted);
            EXPECT_EQ(world.plan.drawings()[0].rows.front().tabOrder, 1);
            EXPECT_LE(world.calls.count(L"ActiveDocument"), 2U) << "for the check, and for the tabs";
            EXPECT_EQ(world.order.result().statusText(), L"Reihenfolge geändert.");
            if (turn % 2 != 0 || world.undo.empty()) continue;
            PlanWorld::takeBack(world.order);
            EXPECT_EQ(world.now(), before);
        }
        Names turned = world.now()[1];
        std::ranges::reverse(turned);
        world.calls.clear();
        world.begin({world.now()[0], turned});
        PlanWorld::finish(world.order);
        EXPECT_TRUE(manner != demo::TabNumbers::store || world.calls.count(L"TabOrder") == 9)
            << "no repair where none is needed";
        EXPECT_EQ(std::ranges::count(world.calls.list(), std::wstring(L"put Document.ActiveLayout")), 1)
            << "draws the tabs anew";
        const std::vector<Names> before = world.now();
        Names first = before[0];
        std::ranges::reverse(first);
        std::ranges::reverse(turned);
        world.begin({first, turned});
        world.order.step();
        world.order.step();
        world.order.stop();
        EXPECT_EQ(world.order.result().statusText(), L"Abgebrochen: 1 von 2 erledigt.");
        EXPECT_EQ(world.now(), (std::vector{first, before[1]}));
    }
}

TEST(TabOrderTest, AFailureAtAnyCallIsToldAndCanBeTakenBack) {
    const std::vector<Names> wanted{{L"f", L"a", L"b", L"e", L"d", L"c"}, {L"z", L"x", L"y"}};
    std::vector<FailingCalls> failures{
        {refused, 1}, {hresult::callCanceled, 1}, {hresult::callCanceled, 500}};
    for (const demo::TabNumbers manner : manners) {
        const auto make = [&] {
            auto world = std::make_unique<Ordering>(manner);
            world->begin(wanted);
            return world;
        };
        expectFailuresCanBeTakenBack(make, failures);
        std::rotate(failures.begin(), failures.begin() + 1, failures.end());
    }
}

TEST(TabOrderTest, WhatIsNotAsWishedIsTold) {
    Ordering world(demo::TabNumbers::store);
    std::vector<Names> wanted = world.now();
    std::ranges::reverse(wanted[1]);
    // The host does nothing of what it is told, as where another client holds the drawing.
    world.failNext(L"put Layout.TabOrder", refused, 100);
    world.begin(wanted);
    PlanWorld::finish(world.order);
    EXPECT_EQ(world.order.result().message(),
              L"AutoCAD hat die Reihenfolge in „B.dwg“ nicht wie gewünscht übernommen. Die Planliste zeigt "
              L"den jetzigen Stand.");
    EXPECT_TRUE(world.undo.empty());
    world.calls.beforeCall({});

    world.documents[1]->putTabNumber(*world.documents[1]->findLayout(L"x"), 9);
    world.begin(wanted);
    PlanWorld::finish(world.order);
    EXPECT_TRUE(world.order.result().message().starts_with(L"In AutoCAD wurden Layouts geändert: B.dwg."));
    wanted[1] = {L"x", L"z", L"y"};
    world.begin(wanted);
    PlanWorld::finish(world.order);
    EXPECT_EQ(world.now(), wanted);
    for (const auto& [error, told] :
         {std::pair(refused, L"Die Reihenfolge kann nicht gelesen werden: Ungültige Eingabe"),
          std::pair(hresult::callCanceled,
                    L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.")}) {
        world.failNext(L"get Layout.TabOrder", error);
        PlanWorld::takeBack(world.order);
        EXPECT_TRUE(world.order.result().message().ends_with(told));
        world.failNext(L"get Layout.TabOrder", error);
        world.begin({world.now()[0], {L"y", L"z", L"x"}});
        PlanWorld::finish(world.order);
        EXPECT_EQ(world.order.result().message(), told);
    }
    world.failNext(L"put Layout.TabOrder", hresult::callCanceled, 2);
    world.begin({world.now()[0], {L"y", L"z", L"x"}});
    PlanWorld::finish(world.order);
    EXPECT_EQ(world.order.result().message(),
              L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.\nDie Reihenfolge in „B.dwg“ ist "
              L"vielleicht nur zum Teil geändert. „Rückgängig“ stellt die alte her.");
    PlanWorld::takeBack(world.order);
    EXPECT_EQ(world.order.result().statusText(), L"Rückgängig gemacht: Reihenfolge in 1 Zeichnung geändert.");
    world.documents[1]->putTabNumber(*world.documents[1]->findLayout(L"x"), 9);
    world.documents[1]->putTabNumber(*world.documents[1]->findLayout(L"y"), 10);
    PlanWorld::takeBack(world.order);
    EXPECT_EQ(world.order.result().message(),
              L"Der Vorgang kann nicht mehr rückgängig gemacht werden: Reihenfolge in 1 Zeichnung "
              L"geändert.\nDie Reihenfolge in „B.dwg“ wurde inzwischen geändert.");
}

TEST(TabOrderTest, ChosenLayoutsMoveTogetherAndStopAtTheEdge) {
    TabOrder order;
    for (const wchar_t* name : {L"b", L"A10", L"c", L"A2", L"d"})
        order.push_back({.row = 0, .name = name, .selected = *name == L'A'});
    const auto becomes = [&](bool moved, const wchar_t* names) {
        std::wstring text;
        for (const TabOrderEntry& entry : order) text += entry.name + L" ";
        EXPECT_TRUE(moved) << names;
        EXPECT_EQ(text, names);
    };
    becomes(moveToStart(order), L"A10 b A2 c d ");
    becomes(moveToStart(order), L"A10 A2 b c d ");
    becomes(!moveToStart(order), L"A10 A2 b c d ");
    becomes(moveToEnd(order), L"b A10 A2 c d ");
    becomes(moveToEnd(order), L"b c A10 A2 d ");
    becomes(moveToEnd(order), L"b c d A10 A2 ");
    becomes(!moveToEnd(order), L"b c d A10 A2 ");
    orderByName(order, GermanLocale());
    becomes(true, L"A2 A10 b c d ");
}

}  // namespace

}  // namespace blattwart::test
