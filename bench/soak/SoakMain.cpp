// The whole program in its real window on the demonstration host over COM, for a long time: what it holds
// must not grow.

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "resilience/ProgramOnHost.h"
#include "soak/Usage.h"

namespace blattwart::bench {

namespace {

using test::HostProgram;
using test::ProgramOnHost;

constexpr int refreshesEach = 20;
constexpr const wchar_t* nodes[] = {L"A", L"Plan.dwg", L"Plan.dwg/Schnitt", L"Haus.dwg", L"B"};

/// One round: the host is started again and found, then the user works for a while.
void doRound(HostProgram& host, ProgramOnHost& program) {
    host.start(program.client);
    program.leaveAndReturn();
    for (int i = 0; i < refreshesEach; ++i)
        program.act([&] { program.form().item(L"mnuViewRefresh").click(); });
    for (const wchar_t* path : nodes) {
        TreeNode* node = program.node(path);
        if (!node) throw std::runtime_error("a node is missing");
        program.act([&] { program.tree().userClicks(*node); });
    }
    program.confirmDialog([&] { program.act([&] { program.form().item(L"mnuHelpAbout").click(); }); });
    program.calls.clear();
    program.world.messages.clear();
}

void print(std::size_t round, const Usage& usage) {
    std::printf("%8zu %8.0f %8.0f %8.0f %10.2f\n", round, usage.gdi, usage.user, usage.kernel,
                usage.megabytes);
    std::fflush(stdout);
}

/// What one of the numbers grew by, on average, from the second third of the rounds to the last.
double growth(const std::vector<Usage>& usages, double Usage::*number) {
    const std::size_t third = usages.size() / 3;
    const auto sum = [&](std::size_t from) {
        double result = 0;
        for (std::size_t i = from; i < from + third; ++i) result += usages[i].*number;
        return result / static_cast<double>(third);
    };
    return sum(usages.size() - third) - sum(usages.size() - 2 * third);
}

bool isLevel(const std::vector<Usage>& usages) {
    struct Limit {
        const char* name;
        double Usage::*number;
        double noise;
    };
    constexpr Limit limits[] = {{"GDI objects", &Usage::gdi, 1},
                                {"USER objects", &Usage::user, 2},
                                {"kernel handles", &Usage::kernel, 2},
                                {"private memory [MB]", &Usage::megabytes, 0.25}};
    bool level = true;
    for (const Limit& limit : limits) {
        const double grown = growth(usages, limit.number);
        const bool grows = grown > limit.noise;
        level = level && !grows;
        std::printf("%-20s %+8.2f from the second third to the last, noise is up to %.2f%s\n", limit.name,
                    grown, limit.noise, grows ? ": GROWS" : "");
    }
    return level;
}

int roundsWanted() {
    constexpr int all = 100;
    const char* text = std::getenv("SOAK_ROUNDS");
    const int wanted = text ? std::atoi(text) : all;
    return wanted < 3 ? 3 : wanted;
}

bool soak() {
    HostProgram host;
    ProgramOnHost program{std::chrono::seconds(10)};
    host.start(program.client);
    if (!program.start()) throw std::runtime_error("the program does not start");

    const int rounds = roundsWanted();
    std::printf("%d rounds of a host's start, %d refreshes, %zu clicks and a dialog\n", rounds, refreshesEach,
                std::size(nodes));
    std::printf("%8s %8s %8s %8s %10s\n", "round", "GDI", "USER", "kernel", "memory");
    std::vector<Usage> usages;
    for (int round = 1; round <= rounds; ++round) {
        doRound(host, program);
        usages.push_back(measureUsage());
        if (round == 1 || round % 10 == 0 || round == rounds)
            print(static_cast<std::size_t>(round), usages.back());
    }
    return isLevel(usages);
}

}  // namespace

}  // namespace blattwart::bench

int main() {
    try {
        return blattwart::bench::soak() ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 2;
    }
}
