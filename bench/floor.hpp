#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

#include "bench/samples.hpp"

namespace TBVNonPara::Bench {

inline std::vector<double> numbers(std::int64_t count, int distinct = 0) {
    Samples samples(distinct);
    std::vector<double> values(static_cast<std::size_t>(count));
    std::ranges::generate(values, [&] { return samples.next(); });
    return values;
}

/// The floor under every ranking: the values alone, sorted.
inline void timeSort(benchmark::State& state, const std::vector<double>& values) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<double> copy = values;
        state.ResumeTiming();
        std::ranges::sort(copy);
        benchmark::DoNotOptimize(copy.data());
    }
}

}  // namespace TBVNonPara::Bench
