// The whole program in its real window on the demonstration host over COM, for a long time: what it holds
// must not grow.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <vector>

#include "resilience/ProgramOnHost.h"
#include "soak/Usage.h"

namespace blattwart::bench {

namespace {

using test::HostProgram;
using test::ProgramOnHost;

constexpr const wchar_t* nodes[] = {L"A", L"Plan.dwg", L"Plan.dwg/Schnitt", L"Haus.dwg", L"B"};

/// Closes the dialog that the action opens.
void closingDialogs(const std::function<void()>& action) {
    constexpr UINT soon = 20;
    const UINT_PTR timer = SetTimer(nullptr, 0, soon, [](HWND, UINT, UINT_PTR, DWORD) {
        HWND dialog = FindWindowW(L"#32770", nullptr);
        if (dialog && IsWindowVisible(dialog)) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    action();
    KillTimer(nullptr, timer);
}

/// What the fakes remember for tests would grow and grow.
void forget(ProgramOnHost& program) {
    program.calls.clear();
    program.busy.clear();
    program.world.messages.clear();
    program.world.desktop.log.clear();
}

/// The user works for a while.
void work(ProgramOnHost& program, int refreshes) {
    for (int i = 0; i < refreshes; ++i) program.act([&] { program.form().item(L"mnuViewRefresh").click(); });
    for (const wchar_t* path : nodes) {
        TreeNode* node = program.node(path);
        if (!node) throw std::runtime_error("a node is missing");
        program.act([&] { program.tree().userClicks(*node); });
    }
    closingDialogs([&] { program.act([&] { program.form().item(L"mnuHelpAbout").click(); }); });
    forget(program);
}

/// What a client's process keeps under Wine, whatever it does, when a host ends of which it holds objects: a
/// handle for each and four more.
double keptByWine(HostProgram& host) {
    constexpr int each = 4;
    std::map<std::string, int> counters = host->counters();
    return counters["objects"] - counters["released"] + each;
}

void print(std::size_t round, const Usage& usage) {
    std::printf("%8zu %8.0f %8.0f %8.0f %8.3f %8.2f\n", round, usage.gdi, usage.user, usage.kernel,
                usage.heap, usage.memory);
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

/// How much each number may grow from the second third of the rounds to the last.
struct Noise {
    double gdi = 1;
    double user = 2;
    double kernel = 2;
    double heap = 0.05;
    double memory = 1;
};

bool isLevel(const std::vector<Usage>& usages, const Noise& noise) {
    struct Limit {
        const char* name;
        double Usage::*number;
        double noise;
    };
    const Limit limits[] = {{"GDI objects", &Usage::gdi, noise.gdi},
                            {"USER objects", &Usage::user, noise.user},
                            {"kernel handles", &Usage::kernel, noise.kernel},
                            {"heaps [MB]", &Usage::heap, noise.heap},
                            {"private memory [MB]", &Usage::memory, noise.memory}};
    bool level = true;
    for (const Limit& limit : limits) {
        const double grown = growth(usages, limit.number);
        const bool grows = grown > limit.noise;
        level = level && !grows;
        std::printf("%-20s %+8.2f from the second third to the last, allowed are %.2f%s\n", limit.name, grown,
                    limit.noise, grows ? ": GROWS" : "");
    }
    return level;
}

std::vector<Usage> repeat(const char* what, int rounds, const std::function<Usage()>& round) {
    std::printf("\n%s\n%8s %8s %8s %8s %8s %8s\n", what, "round", "GDI", "USER", "kernel", "heaps", "memory");
    std::vector<Usage> usages;
    for (int i = 1; i <= rounds; ++i) {
        usages.push_back(round());
        if (i == 1 || i % 10 == 0 || i == rounds) print(static_cast<std::size_t>(i), usages.back());
    }
    return usages;
}

bool soakAtWork(ProgramOnHost& program, int rounds) {
    constexpr int refreshes = 20;
    return isLevel(repeat("Rounds of 20 refreshes, 5 clicks and a dialog", rounds,
                          [&] {
                              work(program, refreshes);
                              return measureUsage();
                          }),
                   {});
}

bool soakRestarts(HostProgram& host, ProgramOnHost& program, int rounds) {
    double kept = 0;
    const auto restart = [&] {
        kept += keptByWine(host);
        host.start(program.client);
        program.leaveAndReturn();
        work(program, 1);
        Usage usage = measureUsage();
        usage.kernel -= kept;
        return usage;
    };
    // What Wine keeps needs memory too: a bare client of seven objects grows by 2.5 KB a restart.
    constexpr double megabytesEach = 0.01;
    return isLevel(
        repeat("Restarts of the host, without the handles that Wine keeps of each", rounds, restart),
        {.heap = megabytesEach * rounds / 3, .memory = 1 + megabytesEach * rounds / 3});
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
    const bool levelAtWork = soakAtWork(program, rounds);
    return soakRestarts(host, program, rounds) && levelAtWork;
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
