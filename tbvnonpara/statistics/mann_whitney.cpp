#include "tbvnonpara/statistics/mann_whitney.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "tbvnonpara/distributions/conditional_counts.hpp"
#include "tbvnonpara/distributions/mann_whitney.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/ordering/pair_selection.hpp"
#include "tbvnonpara/statistics/newcombe.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

/// From here on the untied distribution of U is no longer counted.
constexpr double pairsTooMany = 50000;

Sample sampleWithValues(std::span<const double> values, std::string_view name, const Options& options) {
    Sample sample = sampleOf(values, name, options);
    if (sample.values.empty()) {
        throw std::invalid_argument("T" + std::string(name).substr(1) + " has no values.");
    }
    sortAscending(sample.values);
    return sample;
}

/// Both samples ascend.
PairCounts pairsOfValues(std::span<const double> first, std::span<const double> second) {
    PairCounts pairs;
    std::size_t below = 0;
    std::size_t notAbove = 0;
    for (const double value : first) {
        while (below < second.size() && second[below] < value) {
            below += 1;
        }
        while (notAbove < second.size() && second[notAbove] <= value) {
            notAbove += 1;
        }
        pairs.greater += below;
        pairs.equal += notAbove - below;
        pairs.less += second.size() - notAbove;
    }
    return pairs;
}

/// Chances of U or more without ties, at the place that is U; empty where there are too many pairs to count.
std::vector<double> untiedTails(const MannWhitney& test) {
    const auto [n1, n2] = test.n;
    if (static_cast<double>(n1) * static_cast<double>(n2) >= pairsTooMany) {
        return {};
    }
    return mannWhitneyUpperTails(Long(static_cast<Index>(n1)), Long(static_cast<Index>(n2)));
}

/// Without ties U is a whole number, and the distribution is symmetric.
ExactTails tailsAmongUntied(const MannWhitney& test, std::span<const double> untied) {
    const auto greater = static_cast<std::size_t>(test.u[0]);
    const auto less = static_cast<std::size_t>(test.u[1]);
    const std::size_t extreme = std::max(greater, less);
    const double beyond = extreme + 1 < untied.size() ? untied[extreme + 1] : 0;
    return {std::min(2 * untied[extreme], 1.0), untied[greater], untied[less], untied[extreme] - beyond};
}

/// The untied count where there are no ties, else that of the ranks as they are tied.
std::optional<ExactTails> exactTails(const MannWhitney& test, std::span<const double> ascendingRanks,
                                     std::span<const double> untied, const Options& options) {
    if (options.exactSteps <= 0) {
        return std::nullopt;
    }
    if (test.ties.groups > 0) {
        return rankSumTails(ascendingRanks, test.n[0], test.rankSum[0], options.exactSteps);
    }
    return untied.empty() ? std::nullopt : std::optional(tailsAmongUntied(test, untied));
}

/// What the mean ranks of a sample's values owe to the other sample: rank among all less rank among their
/// own.
struct Placements {
    double mean = 0;
    double variance = 0;
};

Placements placementsOf(std::span<const double> own, std::span<const double> others) {
    std::vector<double> placements(own.size());
    std::size_t below = 0;
    std::size_t notAbove = 0;
    for (std::size_t i = 0; i < own.size(); ++i) {
        while (below < others.size() && others[below] < own[i]) {
            below += 1;
        }
        while (notAbove < others.size() && others[notAbove] <= own[i]) {
            notAbove += 1;
        }
        placements[i] = (static_cast<double>(below) + static_cast<double>(notAbove)) / 2;
    }
    const auto n = static_cast<double>(own.size());
    const double mean = std::accumulate(placements.begin(), placements.end(), 0.0) / n;
    const double squares = std::transform_reduce(placements.begin(), placements.end(), 0.0, std::plus<>(),
                                                 [mean](double p) { return (p - mean) * (p - mean); });
    return {mean, squares / (n - 1)};
}

/// Brunner and Munzel (2000) with the degrees of freedom of Satterthwaite.
std::optional<StudentTails> brunnerMunzel(std::span<const double> first, std::span<const double> second,
                                          double superiority) {
    if (first.size() < 2 || second.size() < 2) {
        return std::nullopt;
    }
    const auto n1 = static_cast<double>(first.size());
    const auto n2 = static_cast<double>(second.size());
    const double V1 = n1 * placementsOf(first, second).variance;
    const double V2 = n2 * placementsOf(second, first).variance;
    if (!(V1 + V2 > 0)) {
        return std::nullopt;
    }
    const double t = n1 * n2 * (superiority - 0.5) / std::sqrt(V1 + V2);
    const double df = (V1 + V2) * (V1 + V2) / (V1 * V1 / (n1 - 1) + V2 * V2 / (n2 - 1));
    return studentTails(t, df);
}

/// From the untied null distribution, which holds its level under ties, too (Noether 1967).
Depth exactDepth(std::span<const double> untied, double confidence) {
    // By symmetry the chance of U = k - 1 or less is that of U = pairs - k + 1 or more.
    const auto atMost = [&](std::size_t u) { return untied[untied.size() - 1 - u]; };
    Depth depth{0, 0, std::max(1 - 2 * atMost(0), 0.0)};
    for (std::size_t k = 1; 2 * k <= untied.size() && atMost(k - 1) <= (1 - confidence) / 2; ++k) {
        depth.k = k;
        depth.attained = 1 - 2 * atMost(k - 1);
    }
    return depth;
}

OrderedEstimate shiftOf(std::span<const double> first, std::span<const double> second,
                        std::span<const double> untied, double confidence) {
    const auto n1 = static_cast<double>(first.size());
    const auto n2 = static_cast<double>(second.size());
    const Depth depth = untied.empty()
                            ? normalDepth(n1 * n2 / 2, std::sqrt(n1 * n2 * (n1 + n2 + 1) / 12), confidence)
                            : exactDepth(untied, confidence);
    return medianAmong(std::uint64_t(first.size()) * second.size(), depth,
                       [=](auto places) { return differencesAtPlaces(first, second, places); });
}

MannWhitney::Group groupOf(std::span<const double> ascending, double rankSum, double confidence) {
    return {ascending.size(), medianOf(ascending, confidence),
            rankSum / static_cast<double>(ascending.size())};
}

Estimate rankBiserialOf(const Estimate& superiority) {
    const auto turned = [](const std::optional<double>& A) { return A ? std::optional(2 * *A - 1) : A; };
    return {2 * superiority.value - 1, turned(superiority.low), turned(superiority.high)};
}

/// The counts of pairs and what is a matter of them alone.
void comparePairs(MannWhitney& test, std::span<const double> first, std::span<const double> second) {
    test.n = {first.size(), second.size()};
    test.pairs = pairsOfValues(first, second);
    const double half = static_cast<double>(test.pairs.equal) / 2;
    test.u = {static_cast<double>(test.pairs.greater) + half, static_cast<double>(test.pairs.less) + half};
    for (std::size_t i = 0; i < test.n.size(); ++i) {
        const auto n = static_cast<double>(test.n[i]);
        test.rankSum[i] = test.u[i] + n * (n + 1) / 2;
    }
}

Midranks rankTogether(std::span<const double> first, std::span<const double> second) {
    std::vector<double> pooled(first.begin(), first.end());
    pooled.insert(pooled.end(), second.begin(), second.end());
    return midranks(pooled);
}

/// The normal approximation and the interval that go back to the same variance.
void estimateSuperiority(MannWhitney& test, double confidence) {
    const auto n1 = static_cast<double>(test.n[0]);
    const auto n2 = static_cast<double>(test.n[1]);
    const double pairs = n1 * n2;
    const double variance = pairs * (n1 + n2 + 1) * test.ties.factor / 12;
    test.normal = normalApproximation(test.u[0] - pairs / 2, std::sqrt(variance), 1);
    test.superiority = superiorityOf(test.u[0] / pairs, n1, n2, test.ties.factor, confidence);
    test.rankBiserial = rankBiserialOf(test.superiority);
}

}  // namespace

MannWhitney mannWhitney(std::span<const double> first, std::span<const double> second,
                        const Options& options) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    const Sample x = sampleWithValues(first, "the first sample", options);
    const Sample y = sampleWithValues(second, "the second sample", options);
    MannWhitney test;
    test.missing = x.missing + y.missing;
    comparePairs(test, x.values, y.values);
    const Midranks ranked = rankTogether(x.values, y.values);
    test.ties = ranked.ties;
    const std::vector<double> untied = untiedTails(test);
    if (const auto counted = exactTails(test, ranked.ascending, untied, options)) {
        test.exact = tails(*counted);
    }
    estimateSuperiority(test, options.confidence);
    if (test.normal && !test.exact) {
        test.sampled = sampledRankSum(ranked.ranks, test.n[0], test.rankSum[0], options);
    }
    test.robust = brunnerMunzel(x.values, y.values, test.superiority.value);
    test.shift = shiftOf(x.values, y.values, untied, options.confidence);
    test.groups = {groupOf(x.values, test.rankSum[0], options.confidence),
                   groupOf(y.values, test.rankSum[1], options.confidence)};
    return test;
}

double superiority(std::span<const double> first, std::span<const double> second) {
    const PairCounts pairs = pairsOfValues(first, second);
    return (static_cast<double>(pairs.greater) + static_cast<double>(pairs.equal) / 2) /
           (static_cast<double>(first.size()) * static_cast<double>(second.size()));
}

std::string_view methodOf(const MannWhitney& test) {
    return test.exact ? "exact" : test.normal ? "normal" : "none";
}

}  // namespace TBVNonPara::statistics
