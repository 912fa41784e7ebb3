#pragma once

#include <algorithm>
#include <ctime>

namespace TBVNonPara::Bench {

inline double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The least of several measurements, each of so many calls that it takes a while.
template <typename Action>
double leastSeconds(Action action) {
    constexpr double longEnough = 0.02;
    constexpr double inAll = 0.2;
    double least = 1e9;
    double spent = 0;
    int calls = 1;
    for (int round = 0; round < 5 || (spent < inAll && round < 50); ++round) {
        const double start = processorSeconds();
        for (int call = 0; call < calls; ++call) {
            action();
        }
        const double seconds = processorSeconds() - start;
        spent += seconds;
        least = std::min(least, seconds / calls);
        calls = seconds < longEnough ? calls * 4 : calls;
    }
    return least;
}

}  // namespace TBVNonPara::Bench
