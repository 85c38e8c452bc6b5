#include <benchmark/benchmark.h>

#include "controls/ListView.h"
#include "support/GermanLocale.h"

namespace blattwart {

namespace {

/// Rows as a drawing's layouts give them, in no particular order.
void fill(ListView& list, int rows) {
    for (int i = 0; i < rows; ++i) {
        const std::wstring number = std::to_wstring(static_cast<long long>(i) * 7919 % rows);
        ListItem& item = list.add(L"L" + std::to_wstring(i), L"Blatt " + number + L" Grundriss");
        item.setColumn(2, L"Plotter " + std::to_wstring(i % 3) + L".pc3");
        item.setColumn(3, L"A" + std::to_wstring(i % 5));
        item.setColumn(4, L"Querformat");
        item.setColumn(5, L"Kein");
    }
}

void addColumns(ListView& list) {
    for (int i = 0; i < 5; ++i) list.addColumn(L"Spalte", 2500);
}

void fillAndSort(benchmark::State& state) {
    const test::GermanLocale locale;
    for (auto _ : state) {
        ListView list(locale);
        addColumns(list);
        list.setSorted(true);
        const Update update(list);
        fill(list, static_cast<int>(state.range(0)));
    }
}
BENCHMARK(fillAndSort)->Arg(50)->Arg(5000)->Unit(benchmark::kMillisecond);

/// A filler without an update: each row finds its place by itself.
void fillRowByRow(benchmark::State& state) {
    const test::GermanLocale locale;
    for (auto _ : state) {
        ListView list(locale);
        addColumns(list);
        list.setSorted(true);
        fill(list, static_cast<int>(state.range(0)));
    }
}
BENCHMARK(fillRowByRow)->Arg(50)->Arg(5000)->Unit(benchmark::kMillisecond);

void refillWithTheSame(benchmark::State& state) {
    const test::GermanLocale locale;
    ListView list(locale);
    addColumns(list);
    list.setSorted(true);
    fill(list, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const Update update(list);
        list.clear();
        fill(list, static_cast<int>(state.range(0)));
    }
}
BENCHMARK(refillWithTheSame)->Arg(50)->Arg(5000)->Unit(benchmark::kMillisecond);

void sortByAnotherColumn(benchmark::State& state) {
    const test::GermanLocale locale;
    ListView list(locale);
    addColumns(list);
    {
        const Update update(list);
        fill(list, static_cast<int>(state.range(0)));
    }
    list.setSorted(true);
    for (auto _ : state) list.setSortKey((list.sortKey() + 1) % 5);
}
BENCHMARK(sortByAnotherColumn)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace blattwart
