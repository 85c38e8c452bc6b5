#include <benchmark/benchmark.h>

#include "controls/TreeView.h"

namespace blattwart {

namespace {

void addTemplates(TreeView& tree, int count) {
    const Update update(tree);
    TreeNode& library = tree.add(nullptr, L"B", L"Bibliothek", 3);
    for (int i = 0; i < count; ++i)
        tree.add(&library, L"D" + std::to_wstring(i), L"Vorlage " + std::to_wstring(i) + L".dwt", 6, 4);
}

void buildTree(benchmark::State& state) {
    for (auto _ : state) {
        TreeView tree;
        addTemplates(tree, static_cast<int>(state.range(0)));
    }
}
BENCHMARK(buildTree)->Arg(5000)->Unit(benchmark::kMillisecond);

/// All bold marks are cleared and set again, as each refresh of the navigator does.
void refreshWithoutChange(benchmark::State& state) {
    TreeView tree;
    addTemplates(tree, static_cast<int>(state.range(0)));
    tree.node(L"D1").setBold(true);
    for (auto _ : state) {
        const Update update(tree);
        tree.forEach([](TreeNode& node) { node.setBold(false); });
        tree.node(L"B").setImage(11);
        tree.node(L"B").setImage(3);
        tree.node(L"D1").setBold(true);
    }
}
BENCHMARK(refreshWithoutChange)->Arg(5000)->Unit(benchmark::kMillisecond);

/// First children first, which moves all others up.
void removeOneByOne(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        TreeView tree;
        addTemplates(tree, count);
        state.ResumeTiming();
        const Update update(tree);
        for (int i = 0; i < count; ++i) tree.remove(L"D" + std::to_wstring(i));
    }
}
BENCHMARK(removeOneByOne)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace blattwart
