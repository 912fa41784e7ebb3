#include "tbvnonpara/statistics/wilcoxon.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "tbvnonpara/distributions/conditional_counts.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/ordering/pair_selection.hpp"
#include "tbvnonpara/statistics/differences.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

/// A difference's rank with its sign; unsigned ranks ascend.
struct Ranked {
    std::vector<double> signedRanks;
    std::vector<double> ascending;
    Ties ties;
};

/// The ranks of |d|, without those of zeros, which `droppedFirst` leaves out before the ranking.
Ranked rankDifferences(std::span<const double> differences, bool droppedFirst) {
    std::vector<double> kept(differences.begin(), differences.end());
    if (droppedFirst) {
        std::erase(kept, 0.0);
    }
    std::vector<double> sizes(kept.size());
    std::ranges::transform(kept, sizes.begin(), [](double d) { return std::abs(d); });
    Midranks ranks = midranks(sizes);
    Ranked ranked{{}, {}, ranks.ties};
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (kept[i] != 0) {
            ranked.signedRanks.push_back(std::copysign(ranks.ranks[i], kept[i]));
        }
    }
    const auto zeros = std::ranges::count(kept, 0.0);
    ranked.ascending.assign(ranks.ascending.begin() + zeros, ranks.ascending.end());
    return ranked;
}

double sumOfSquares(std::span<const double> values) {
    return std::transform_reduce(values.begin(), values.end(), 0.0, std::plus<>(),
                                 [](double v) { return v * v; });
}

SignedRanks signedRanksOf(const Ranked& ranked, const Options& options) {
    SignedRanks sums;
    for (const double rank : ranked.signedRanks) {
        (rank > 0 ? sums.plus : sums.minus) += std::abs(rank);
    }
    if (ranked.signedRanks.empty()) {
        return sums;
    }
    if (const auto counted = signedRankTails(ranked.ascending, sums.plus, options.exactSteps)) {
        sums.exact = tails(*counted);
    }
    sums.normal =
        normalApproximation((sums.plus - sums.minus) / 2, std::sqrt(sumOfSquares(ranked.ascending)) / 2, 1);
    if (sums.normal && !sums.exact) {
        sums.sampled = sampledSignedRanks(ranked.ascending, sums.plus, options);
    }
    return sums;
}

/// All rho with |r - rho| = z sqrt(v (1 - rho^2)), v the null variance of r.
std::optional<Estimate> rankBiserialOf(const SignedRanks& sums, const Ranked& ranked, double confidence) {
    const double total = sums.plus + sums.minus;
    if (!(total > 0)) {
        return std::nullopt;
    }
    const double r = (sums.plus - sums.minus) / total;
    const double z = normalQuantile(confidence);
    const double kv = z * z * sumOfSquares(ranked.ascending) / (total * total);
    const double reach = std::sqrt(kv * (1 + kv - r * r));
    return Estimate{r, std::max((r - reach) / (1 + kv), -1.0), std::min((r + reach) / (1 + kv), 1.0)};
}

Depth countedDepth(std::size_t n, double confidence) {
    std::vector<std::int64_t> ranks(n);
    std::iota(ranks.begin(), ranks.end(), 1);
    const std::vector<double> chances = signedRankChances(ranks);
    Depth depth{0, 0, 1 - 2 * chances.front()};
    double atMost = 0;
    for (std::size_t k = 1; k <= chances.size() / 2; ++k) {
        atMost += chances[k - 1];
        if (atMost > (1 - confidence) / 2) {
            break;
        }
        depth.k = k;
        depth.attained = 1 - 2 * atMost;
    }
    return depth;
}

OrderedEstimate pseudomedianOf(std::span<const double> ascending, double confidence) {
    constexpr std::size_t lastCounted = 200;
    const std::size_t n = ascending.size();
    const auto N = static_cast<double>(n);
    const Depth depth = n <= lastCounted ? countedDepth(n, confidence)
                                         : normalDepth(N * (N + 1) / 4,
                                                       std::sqrt(N * (N + 1) * (2 * N + 1) / 24), confidence);
    return medianAmong(std::uint64_t(n) * (n + 1) / 2, depth,
                       [=](auto places) { return walshAveragesAtPlaces(ascending, places); });
}

Wilcoxon::Group pairedGroup(std::vector<double> values, double confidence) {
    sortAscending(values);
    return {values.size(), medianOf(values, confidence)};
}

}  // namespace

Wilcoxon wilcoxon(std::span<const double> first, std::span<const double> second, const Options& options) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    const Pairs pairs = pairsOf(first, second, options);
    if (pairs.first.empty()) {
        throw std::invalid_argument("There are no pairs of values.");
    }
    std::vector<double> differences = cleanedDifferences(pairs.first, pairs.second);

    Wilcoxon test;
    test.n = differences.size();
    test.missing = pairs.missing;
    const auto number = [](auto count) { return static_cast<std::size_t>(count); };
    test.positive = number(std::ranges::count_if(differences, [](double d) { return d > 0; }));
    test.negative = number(std::ranges::count_if(differences, [](double d) { return d < 0; }));
    test.zero = test.n - test.positive - test.negative;

    const Ranked ranked = rankDifferences(differences, true);
    test.ties = ranked.ties;
    test.zerosLeftOut = signedRanksOf(ranked, options);
    if (test.zero > 0) {
        test.pratt = signedRanksOf(rankDifferences(differences, false), options);
    }
    test.rankBiserial = rankBiserialOf(test.zerosLeftOut, ranked, options.confidence);
    sortAscending(differences);
    test.pseudomedian = pseudomedianOf(differences, options.confidence);
    test.groups = {pairedGroup(pairs.first, options.confidence),
                   pairedGroup(pairs.second, options.confidence)};
    return test;
}

std::string_view methodOf(const Wilcoxon& test) {
    return test.zerosLeftOut.exact ? "exact" : test.zerosLeftOut.normal ? "normal" : "none";
}

}  // namespace TBVNonPara::statistics
