// Each test in the engine beside what bounds it from below: std::sort of the same numbers, all groups pooled.

#include <benchmark/benchmark.h>
#include <vector>

#include "bench/floor.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Bench {

namespace {

void SortOfPooledGroups(benchmark::State& state) {
    timeSort(state, numbers(state.range(0) * state.range(1)));
}

void OrderOfPooledGroups(benchmark::State& state) {
    const std::vector<double> values = numbers(state.range(0) * state.range(1));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ascendingOrder(values));
    }
}

void WholeTest(benchmark::State& state, TBVNPMethod method, Long columns, bool descriptives) {
    const Long rows = state.range(0);
    Samples samples;
    clsNonParaBO engine(ownCompanions(workbook::makeApplication()));
    engine.LetMethod(method);
    engine.LetDescriptives(descriptives);
    engine.LetYs(samples.grid(rows, columns));
    engine.Letxs(samples.grid(rows, 1));
    for (auto _ : state) {
        engine.Analyse();
    }
}

void testedSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(SortOfPooledGroups)
    ->ArgNames({"rows", "groups"})
    ->ArgsProduct({{1000, 1000000}, {1, 2, 3, 5}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(OrderOfPooledGroups)
    ->ArgNames({"rows", "groups"})
    ->ArgsProduct({{1000, 1000000}, {1, 2, 3, 5}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(WholeTest, MannWhitney, tbvNPMannU, 1, false)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, MannWhitneyDescribed, tbvNPMannU, 1, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, Wilcoxon, tbvNPWilcoxon, 1, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, Spearman, tbvNPSpearman, 1, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, Sign, tbvNPSign, 1, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, Median, tbvNPMedian, 3, false)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, MedianDescribed, tbvNPMedian, 3, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, KruskalWallis, tbvNPKWallis, 3, true)->Apply(testedSizes);
BENCHMARK_CAPTURE(WholeTest, Friedman, tbvNPFriedman, 5, true)->Apply(testedSizes);

}  // namespace

}  // namespace TBVNonPara::Bench
