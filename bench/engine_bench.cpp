// The parts of the engine, each beside what bounds it from below.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

#include "bench/samples.hpp"
#include "companion/array_utility.hpp"
#include "engine/categories.hpp"
#include "engine/data_table.hpp"
#include "engine/distributions.hpp"

namespace TBVNonPara::Bench {

namespace {

DataTable tableOf(Long rows, int distinct) {
    Samples samples(distinct);
    return CombineSamples(samples.grid(rows, 1), ValueGrid(0, 1));
}

/// The floor under every ranking: the values alone, sorted.
void StdSort(benchmark::State& state) {
    Samples samples;
    std::vector<double> values(static_cast<std::size_t>(state.range(0)));
    std::ranges::generate(values, [&] { return samples.next(); });
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<double> copy = values;
        state.ResumeTiming();
        std::ranges::sort(copy);
        benchmark::DoNotOptimize(copy.data());
    }
}

void Ranking(benchmark::State& state) {
    const DataTable table = tableOf(state.range(0), static_cast<int>(state.range(1)));
    const ObjectRef<ArrayUtility> utility = createArrayUtility();
    for (auto _ : state) {
        state.PauseTiming();
        DataTable copy = table;
        state.ResumeTiming();
        benchmark::DoNotOptimize(RankValues(copy, *utility, false));
    }
}

void ExactMannWhitney(benchmark::State& state) {
    const Long n1 = state.range(0);
    const Long n2 = state.range(1);
    const double U = toDouble(n1) * toDouble(n2) * 0.55;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            MannWhitneyP(n1, n2, U, toDouble(n1) * toDouble(n2) - U, 0, tbvNPTwoTailed, nullptr));
    }
}

void ExactWilcoxon(benchmark::State& state) {
    DataTable table = tableOf(state.range(0), 0);
    const ObjectRef<ArrayUtility> utility = createArrayUtility();
    RankValues(table, *utility, false);
    const double n = static_cast<double>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(WilcoxonTDist(table, n * (n + 1) / 5, false));
    }
}

void ExactSpearman(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(SpearmanP(7, 0.5, tbvNPTwoTailed, nullptr));
    }
}

void FactorialLogarithm(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(FactorialLog(state.range(0)));
    }
}

void CategoriesOfDistinctValues(benchmark::State& state) {
    Samples samples;
    const ValueGrid cells = samples.grid(state.range(0), 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(findCategories(cells.column(1)));
    }
}

const auto inMilliseconds = benchmark::kMillisecond;

BENCHMARK(StdSort)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(inMilliseconds);
BENCHMARK(Ranking)
    ->ArgNames({"rows", "distinct"})
    ->Args({1000, 0})
    ->Args({100000, 0})
    ->Args({1000000, 0})
    ->Args({1000000, 7})
    ->Unit(inMilliseconds);
BENCHMARK(ExactMannWhitney)->Args({10, 10})->Args({100, 100})->Args({223, 224})->Unit(inMilliseconds);
BENCHMARK(ExactWilcoxon)->Arg(10)->Arg(50)->Unit(inMilliseconds);
BENCHMARK(ExactSpearman)->Unit(inMilliseconds);
BENCHMARK(FactorialLogarithm)->Arg(1000)->Arg(1000000)->Unit(inMilliseconds);
BENCHMARK(CategoriesOfDistinctValues)->Arg(1000)->Arg(1000000)->Unit(inMilliseconds);

}  // namespace

}  // namespace TBVNonPara::Bench
