// The parts of the engine, each beside what bounds it from below.

#include <benchmark/benchmark.h>
#include <numeric>
#include <vector>

#include "bench/floor.hpp"
#include "tbvnonpara/distributions/factorial_log.hpp"
#include "tbvnonpara/distributions/mann_whitney.hpp"
#include "tbvnonpara/distributions/spearman.hpp"
#include "tbvnonpara/distributions/wilcoxon.hpp"
#include "tbvnonpara/engine/categories.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara::Bench {

namespace {

void StdSort(benchmark::State& state) {
    timeSort(state, numbers(state.range(0), static_cast<int>(state.range(1))));
}

void Ranking(benchmark::State& state) {
    const std::vector<double> values = numbers(state.range(0), static_cast<int>(state.range(1)));
    std::vector<double> ranks(values.size());
    for (auto _ : state) {
        benchmark::DoNotOptimize(rankValues(ascendingOrder(values), ranks));
    }
}

void ExactMannWhitney(benchmark::State& state) {
    const Long n1 = state.range(0);
    const Long n2 = state.range(1);
    const double U = toDouble(n1) * toDouble(n2) * 0.55;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            mannWhitneyP(n1, n2, U, toDouble(n1) * toDouble(n2) - U, 0, tbvNPTwoTailed, nullptr));
    }
}

void ExactWilcoxon(benchmark::State& state) {
    std::vector<double> ranks(static_cast<std::size_t>(state.range(0)));
    std::iota(ranks.begin(), ranks.end(), 1.0);
    const double n = static_cast<double>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(wilcoxonTDist(ranks, n * (n + 1) / 5, false));
    }
}

void ExactSpearman(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(spearmanP(7, 0.5, tbvNPTwoTailed, nullptr));
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

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"rows", "distinct"})->ArgsProduct({{10, 1000, 100000, 1000000}, {0, 7}});
}

BENCHMARK(StdSort)->Apply(sizes)->Unit(inMilliseconds);
BENCHMARK(Ranking)->Apply(sizes)->Unit(inMilliseconds);
BENCHMARK(ExactMannWhitney)->Args({10, 10})->Args({100, 100})->Args({223, 224})->Unit(inMilliseconds);
BENCHMARK(ExactWilcoxon)->Arg(10)->Arg(50)->Unit(inMilliseconds);
BENCHMARK(ExactSpearman)->Unit(inMilliseconds);
BENCHMARK(FactorialLogarithm)->Arg(1000)->Arg(1000000)->Unit(inMilliseconds);
BENCHMARK(CategoriesOfDistinctValues)->Arg(1000)->Arg(1000000)->Unit(inMilliseconds);

}  // namespace

}  // namespace TBVNonPara::Bench
