#include "tbvnonpara/statistics/kruskal_wallis.hpp"

#include <cmath>
#include <numeric>

#include "tbvnonpara/distributions/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/comparisons.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/noncentral.hpp"

namespace TBVNonPara::statistics {

namespace {

std::vector<double> rankSumsOf(const Groups& groups, std::span<const double> ranks) {
    std::vector<double> sums;
    std::size_t first = 0;
    for (const std::vector<double>& group : groups.values) {
        const auto own = ranks.subspan(first, group.size());
        sums.push_back(std::accumulate(own.begin(), own.end(), 0.0));
        first += group.size();
    }
    return sums;
}

/// H about the mean rank, which loses no digits in long columns.
double correctedH(const KruskalWallis& test) {
    const auto N = static_cast<double>(test.n);
    double S = 0;
    for (const KruskalWallis::Group& group : test.groups) {
        const double distance = group.meanRank - (N + 1) / 2;
        S += static_cast<double>(group.n) * distance * distance;
    }
    return 12 * S / (N * (N + 1)) / test.ties.factor;
}

Estimate explainedVariation(double H, double N, double k, double confidence) {
    Estimate epsilon{H / (N - 1), {}, {}};
    const double rest = N - 1 - H;
    if (N - k < 1 || !(rest > 0)) {
        return epsilon;
    }
    const double F = H / (k - 1) / (rest / (N - k));
    if (const auto lambda = noncentralF(F, k - 1, N - k, confidence)) {
        epsilon.low = lambda->low / (lambda->low + N);
        epsilon.high = lambda->high / (lambda->high + N);
    }
    return epsilon;
}

void compare(KruskalWallis& test, const Groups& groups, const Options& options,
             std::optional<std::size_t> control) {
    const auto N = static_cast<double>(test.n);
    const std::vector<GroupPair> pairs = pairsOfGroups(test.groups.size(), control);
    const auto stepsOf = [&](const GroupPair& pair) {
        return stepsToCompare(test.groups[pair.first].n + test.groups[pair.second].n);
    };
    LongCount count(sumOver(pairs, stepsOf));
    for (const GroupPair& pair : pairs) {
        const KruskalWallis::Group& a = test.groups[pair.first];
        const KruskalWallis::Group& b = test.groups[pair.second];
        const double spread = std::sqrt(N * (N + 1) * test.ties.factor / 12 *
                                        (1 / static_cast<double>(a.n) + 1 / static_cast<double>(b.n)));
        const double z = (a.meanRank - b.meanRank) / spread;
        const double share = superiority(groups.values[pair.first], groups.values[pair.second]);
        test.comparisons.push_back({pair.first, pair.second, z, share, normalTwoTailed(z), {}});
        count.add(stepsOf(pair));
    }
    std::vector<double> ranks;
    for (const KruskalWallis::Group& group : test.groups) {
        ranks.push_back(group.meanRank);
    }
    test.letters = adjustTogether(test.comparisons, ranks, options, control.has_value());
}

}  // namespace

KruskalWallis kruskalWallis(SampleSpans samples, const Options& options, std::optional<std::size_t> control) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    const Groups groups = groupsOf(samples, options);
    const std::optional<std::size_t> controlGroup = groupOfControl(groups, control);
    const Midranks ranked = midranks(groups.pooled());
    const std::vector<double> rankSums = rankSumsOf(groups, ranked.ranks);

    KruskalWallis test;
    test.n = groups.total;
    test.missing = groups.missing;
    test.ties = ranked.ties;
    for (std::size_t g = 0; g < groups.values.size(); ++g) {
        const std::size_t n = groups.values[g].size();
        test.groups.push_back({groups.original[g], n, medianOf(groups.values[g], options.confidence),
                               rankSums[g] / static_cast<double>(n)});
    }
    if (!(test.ties.factor > 0)) {
        return test;
    }
    const auto N = static_cast<double>(test.n);
    const auto k = static_cast<double>(groups.values.size());
    const double H = correctedH(test);
    test.chiSquare = ChiSquare{H, k - 1, chiSquareTail(H, k - 1)};
    if (N > k && N - 1 > H) {
        const double F = H / (k - 1) / ((N - 1 - H) / (N - k));
        test.f = FRatio{F, k - 1, N - k, fTail(F, k - 1, N - k)};
    }
    if (const auto exact =
            kruskalWallisTail(ranked.ascending, groups.sizes(), rankSums, options.exactSteps)) {
        test.exact = ExactUpper{probability(exact->p), exact->point};
    } else {
        test.sampled = sampledGroups(ranked.ranks, groups.sizes(), options);
    }
    test.epsilonSquared = explainedVariation(H, N, k, options.confidence);
    compare(test, groups, options, controlGroup);
    if (options.trend) {
        test.trend = jonckheereTerpstra(groups, options.exactSteps);
    }
    return test;
}

std::string_view methodOf(const KruskalWallis& test) {
    return test.exact ? "exact" : test.chiSquare ? "chi-square" : "none";
}

}  // namespace TBVNonPara::statistics
