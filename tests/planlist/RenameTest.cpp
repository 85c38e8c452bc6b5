#include <random>
#include <set>

#include "planlist/RenamePattern.h"
#include "PlanWorld.h"

namespace blattwart::test {

namespace {

/// Some layouts of two drawings and what they are to be called, from few names, so that chains, rings and
/// changes of case alone are frequent.
struct Scenario {
    std::vector<Names> names{2};
    std::vector<Names> wanted{2};

    explicit Scenario(unsigned seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t n) {
            return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
        };
        for (std::size_t drawing = 0; drawing < 2; ++drawing) {
            Names pool{L"A", L"b", L"Ä", L"BLATTWART$1", L"x 1", L"c"};
            std::ranges::shuffle(pool, random);
            pool.resize(2 + below(4));
            names[drawing] = pool;
            pool.push_back(L"neu");
            std::ranges::shuffle(pool, random);
            pool.resize(names[drawing].size());
            wanted[drawing] = pool;
            for (std::wstring& name : wanted[drawing])
                if (below(3) == 0)
                    name.front() = name.front() == L'A' ? L'a' : name.front() == L'b' ? L'B' : L'Ä';
            std::set<std::wstring> distinct;
            for (const std::wstring& name : wanted[drawing]) distinct.insert(GermanLocale().upperCase(name));
            if (distinct.size() < pool.size()) wanted[drawing] = names[drawing];
        }
    }

    /// Puts that are needed: one for each change, one more for each ring. Followed name by name.
    std::size_t leastPuts() const {
        std::size_t puts = 0;
        const GermanLocale locale;
        for (std::size_t drawing = 0; drawing < 2; ++drawing) {
            std::set<std::size_t> seen;
            for (std::size_t i = 0; i < names[drawing].size(); ++i) {
                if (names[drawing][i] != wanted[drawing][i]) ++puts;
                std::set<std::size_t> path;
                for (std::size_t at = i; names[drawing][at] != wanted[drawing][at] && !seen.contains(at);) {
                    seen.insert(at);
                    path.insert(at);
                    const auto next = std::ranges::find_if(names[drawing], [&](const std::wstring& name) {
                        return locale.equalIgnoringCase(name, wanted[drawing][at]);
                    });
                    if (next == names[drawing].end()) break;
                    at = static_cast<std::size_t>(next - names[drawing].begin());
                    if (path.contains(at)) ++puts;
                }
            }
        }
        return puts;
    }
};

class Renaming : public PlanWorld {
  public:
    explicit Renaming(const Scenario& scenario) : PlanWorld({.caseIsTaken = true}), scenario_(scenario) {
        documents = {open(L"C:\\P", L"A.dwg", scenario.names[0]),
                     open(L"C:\\P", L"B.dwg", scenario.names[1])};
        read();
        for (std::size_t d = 0; d < 2; ++d) {
            for (std::size_t i = 0; i < scenario.names[d].size(); ++i)
                rows_.push_back(number(documents[d]->name(), scenario.names[d][i]));
        }
        calls.clear();
    }

    /// Renames; `meanwhile` happens between the events.
    void rename(const std::function<void()>& meanwhile = [] {}) {
        std::vector<PlanWriter::NewName> names;
        std::size_t row = 0;
        for (const Names& wanted : scenario_.wanted)
            for (const std::wstring& name : wanted) names.push_back({rows_[row++], name});
        writer.beginRenaming(names);
        while (writer.step()) meanwhile();
    }
    std::vector<Names> now() const { return {layouts(documents[0]), layouts(documents[1])}; }
    bool eachOldOrNew() const {
        const auto names = now();
        for (std::size_t d = 0; d < 2; ++d)
            if (names[d] != scenario_.names[d] && names[d] != scenario_.wanted[d]) return false;
        return true;
    }
    /// Whether the list says what the host has, each layout in its row.
    bool listIsTrue() {
        std::size_t row = 0;
        for (const Names& names : now())
            for (const std::wstring& name : names)
                if (const auto place = plan.find(rows_[row++]); !place || place.row->name != name)
                    return false;
        return true;
    }
    /// The places of the puts of names among the calls.
    std::vector<std::size_t> puts() const {
        std::vector<std::size_t> places;
        const Names list = calls.list();
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list[i] == L"put Layout.Name") places.push_back(i + 1);
        return places;
    }
    std::vector<demo::DocumentPtr> documents;

  private:
    const Scenario& scenario_;
    std::vector<int> rows_;
};

/// What goes wrong from a put on: that one call, all calls of its event, or all calls until the user is told.
enum class Trouble { call, event, all };

void expectNothingHalfDone(const Scenario& scenario, std::size_t put, std::int32_t error, demo::Moment moment,
                           Trouble trouble) {
    Renaming renaming(scenario);
    renaming.failFrom(put, trouble == Trouble::call ? put : put + 500, error, moment);
    renaming.rename([&] {
        if (trouble == Trouble::event && renaming.calls.count() >= put) renaming.calls.heal();
    });
    renaming.calls.heal();
    const PlanWriteResult& result = renaming.writer.result();
    EXPECT_TRUE(trouble == Trouble::all || renaming.eachOldOrNew());
    if (result.end == PlanWriteResult::End::done) {
        EXPECT_EQ(renaming.now(), scenario.wanted);
    } else {
        EXPECT_EQ(result.end, PlanWriteResult::End::refused);
        EXPECT_NE(result.message().find(L"\nUmbenannt: " + std::to_wstring(result.done)), std::wstring::npos);
        if (result.refusal.takenBack) {
            EXPECT_TRUE(renaming.eachOldOrNew());
            EXPECT_TRUE(renaming.listIsTrue());
        }
    }
    if (!renaming.undo.empty()) {
        EXPECT_FALSE(renaming.undo.top().text().starts_with(L"0 "));
        PlanWorld::takeBack(renaming.writer);
    }
    EXPECT_EQ(renaming.now(), scenario.names);
    EXPECT_TRUE(renaming.undo.empty());
}

/// Any one put refused, or its answer and what follows lost.
void expectFailuresAtAnyPut(const Scenario& scenario, const std::vector<std::size_t>& puts) {
    using demo::Moment;
    for (const std::size_t put : puts) {
        SCOPED_TRACE(put);
        expectNothingHalfDone(scenario, put, refused, Moment::before, Trouble::call);
        for (const Moment moment : {Moment::before, Moment::after})
            for (const Trouble trouble : {Trouble::call, Trouble::event, Trouble::all})
                expectNothingHalfDone(scenario, put, hresult::callCanceled, moment, trouble);
    }
}

TEST(RenameTest, NamesComeOutRightAndGoBackAlsoAfterAFailureAtAnyPut) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const Scenario scenario(seed);
        Renaming renaming(scenario);
        renaming.rename();
        EXPECT_EQ(renaming.now(), scenario.wanted);
        EXPECT_EQ(renaming.puts().size(), scenario.leastPuts());
        EXPECT_TRUE(renaming.listIsTrue());
        EXPECT_EQ(renaming.undo.empty(), scenario.leastPuts() == 0);
        if (seed % 6 == 0) expectFailuresAtAnyPut(scenario, renaming.puts());
        if (renaming.undo.empty()) continue;
        PlanWorld::takeBack(renaming.writer);
        EXPECT_EQ(renaming.now(), scenario.names);
        EXPECT_TRUE(renaming.listIsTrue());
        EXPECT_TRUE(renaming.undo.empty());
    }
}

TEST(RenameTest, WhatDoesNotFitAnyMoreIsNotTakenBackAndStays) {
    PlanWorld world;
    const auto a = world.open(L"C:\\P", L"A.dwg", {L"eins", L"zwei", L"drei"});
    const auto b = world.open(L"C:\\P", L"B.dwg", {L"eins", L"zwei"});
    world.read();
    const PlanWriteResult& result = world.writer.result();
    world.writer.beginRenaming({{world.number(L"A.dwg", L"eins"), L"zwei"},
                                {world.number(L"A.dwg", L"zwei"), L"eins"},
                                {world.number(L"B.dwg", L"eins"), L"neu"}});
    PlanWorld::finish(world.writer);
    EXPECT_EQ(result.statusText(), L"3 Layouts umbenannt.");
    EXPECT_EQ(PlanWorld::layouts(a), (Names{L"zwei", L"eins", L"drei"}));
    b->drawing().addLayout(L"EINS");
    PlanWorld::takeBack(world.writer);
    EXPECT_EQ(result.message(), L"Rückgängig gemacht bis auf:\nDer Name „eins“ ist inzwischen vergeben.");
    EXPECT_EQ(PlanWorld::layouts(a), (Names{L"eins", L"zwei", L"drei"}));
    EXPECT_EQ(PlanWorld::layouts(b), (Names{L"neu", L"zwei", L"EINS"}));

    b->drawing().renameLayout(*b->findLayout(L"neu"), L"anders");
    ASSERT_FALSE(world.undo.empty());
    EXPECT_EQ(world.undo.top().text(), L"1 Layout umbenannt");
    PlanWorld::takeBack(world.writer);
    EXPECT_EQ(result.reasons, (Names{L"Layout „neu“ gibt es nicht mehr."}));
    world.host().close(b);
    PlanWorld::takeBack(world.writer);
    EXPECT_EQ(result.reasons, (Names{L"„B.dwg“ ist nicht mehr geöffnet."}));
}

}  // namespace

}  // namespace blattwart::test
