#include "tbvnonpara/distributions/wilcoxon.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <vector>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/distributions/probability.hpp"

namespace TBVNonPara {

namespace {

/// The ranks of the ranked rows, doubled when one of them is not whole.
struct WholeRanks {
    std::vector<Long> ranks;
    double scale = 1;
};

WholeRanks wholeRanks(std::span<const double> ranks) {
    WholeRanks whole;
    for (const double rank : ranks) {
        if (rank != std::floor(rank)) {
            whole.scale = 2;
        }
    }
    for (const double rank : ranks) {
        if (rank != 0) {
            whole.ranks.push_back(roundHalfToEven(rank * whole.scale));
        }
    }
    return whole;
}

/// How many subsets of the ranks have a sum of at most `limit`, which is not negative.
double countSubsets(const std::vector<Long>& ranks, Long limit) {
    // The number of subsets with the sum s stands at s, without and with the rank added last.
    std::vector<double> counts(static_cast<std::size_t>(limit.value()) + 1);
    std::vector<double> extended = counts;
    counts.front() = 1;
    Index reached = 0;
    for (const Long rank : ranks) {
        const Index r = std::min(toIndex(rank), toIndex(limit) + 1);
        reached = std::min(reached + toIndex(rank), toIndex(limit));
        std::copy(counts.begin(), counts.begin() + r, extended.begin());
        std::transform(counts.begin() + r, counts.begin() + reached + 1, counts.begin(), extended.begin() + r,
                       std::plus<>());
        counts.swap(extended);
    }
    return std::accumulate(counts.begin(), counts.end(), 0.0);
}

}  // namespace

double signedRankLowerTail(std::span<const double> ranks, double T) {
    const WholeRanks whole = wholeRanks(ranks);
    const double subsets = checked(std::ldexp(1.0, static_cast<int>(whole.ranks.size())));
    const double sumOfAll = std::accumulate(whole.ranks.begin(), whole.ranks.end(), 0.0,
                                            [](double sum, Long rank) { return sum + toDouble(rank); });
    const double limit = std::floor(std::min(T * whole.scale, sumOfAll));
    if (limit < 0) {
        return 0;
    }
    return countSubsets(whole.ranks, roundHalfToEven(limit)) / subsets;
}

double wilcoxonTDist(std::span<const double> ranks, double T, bool oneTailed) {
    const double P = signedRankLowerTail(ranks, T);
    return clampedToOne(oneTailed ? P : 2 * P);
}

double wilcoxonZApprox(const RankedDifferences& ranked, double T, bool oneTailed, double& Z,
                       const NormalTail& normal) {
    const auto [n, z0, ties] = ranked;
    const double variance = (n * (n + 1) * (2 * n + 1) - z0 * (z0 + 1) * (2 * z0 + 1) - ties / 2) / 24;
    const double sd = squareRoot(variance);
    const double mean = (n * (n + 1) - z0 * (z0 + 1)) / 4;
    Z = divide(T - mean, sd);
    const double P = std::abs(normal(Z));
    Z = std::abs(Z);
    return std::min(oneTailed ? P : 2 * P, 1.0);
}

}  // namespace TBVNonPara
