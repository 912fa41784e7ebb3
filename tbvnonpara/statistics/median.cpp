#include "tbvnonpara/statistics/median.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "tbvnonpara/distributions/median.hpp"
#include "tbvnonpara/ordering/selection.hpp"
#include "tbvnonpara/statistics/comparisons.hpp"
#include "tbvnonpara/statistics/noncentral.hpp"

namespace TBVNonPara::statistics {

namespace {

double grandMedianOf(std::span<const double> values) {
    const auto [low, high] = valuesAtPlaces(values, (values.size() - 1) / 2, values.size() / 2);
    return (low + high) / 2;
}

Median::Group medianGroup(std::span<const double> ascending, std::size_t original, double grandMedian,
                          double confidence) {
    const auto [first, last] = std::equal_range(ascending.begin(), ascending.end(), grandMedian);
    const auto above = static_cast<std::size_t>(ascending.end() - last);
    return {original,
            ascending.size(),
            above,
            static_cast<std::size_t>(last - first),
            share(above, ascending.size(), confidence),
            medianOf(ascending, confidence)};
}

/// Sum of (O - E)^2 / E over both rows of the table. None where one of them is empty.
std::optional<ChiSquare> chiSquareOf(std::span<const Median::Group> groups) {
    double N = 0;
    double above = 0;
    for (const Median::Group& group : groups) {
        N += static_cast<double>(group.n);
        above += static_cast<double>(group.above);
    }
    if (above == 0 || above == N) {
        return std::nullopt;
    }
    double sum = 0;
    for (const Median::Group& group : groups) {
        const auto n = static_cast<double>(group.n);
        const double expected = n * above / N;
        const double distance = static_cast<double>(group.above) - expected;
        sum += distance * distance / expected + distance * distance / (n - expected);
    }
    const double df = static_cast<double>(groups.size()) - 1;
    return ChiSquare{sum, df, chiSquareTail(sum, df)};
}

std::optional<ExactUpper> exactMedian(std::span<const Median::Group> groups) {
    constexpr double mostTables = 1e7;
    std::vector<std::size_t> sizes;
    std::vector<std::size_t> above;
    for (const Median::Group& group : groups) {
        sizes.push_back(group.n);
        above.push_back(group.above);
    }
    const auto counted = medianTail(sizes, above, mostTables);
    return counted ? std::optional(ExactUpper{probability(counted->p), counted->point}) : std::nullopt;
}

/// The counts above and not above, dealt to the groups anew.
std::optional<SampledUpper> sampledMedian(const Median& test, const Options& options) {
    std::vector<double> sides;
    std::vector<std::size_t> sizes;
    for (const Median::Group& group : test.groups) {
        sizes.push_back(group.n);
        sides.insert(sides.end(), group.above, 1);
        sides.insert(sides.end(), group.n - group.above, 0);
    }
    return sampledGroups(sides, sizes, options);
}

/// Of two groups: exact, from chi-square where that is below the range of doubles, 1 where a row is empty.
Probability probabilityOfPair(const Median::Group& first, const Median::Group& second) {
    const std::array pair{first, second};
    const std::optional<ChiSquare> chiSquare = chiSquareOf(pair);
    if (!chiSquare) {
        return {};
    }
    const std::optional<ExactUpper> exact = exactMedian(pair);
    return exact ? exact->p : chiSquare->p;
}

Estimate cramerOf(const ChiSquare& chiSquare, double N, double confidence) {
    Estimate V{std::sqrt(chiSquare.value / N), {}, {}};
    if (const auto lambda = noncentralChiSquare(chiSquare.value, chiSquare.df, confidence)) {
        V.low = std::min(std::sqrt(lambda->low / N), 1.0);
        V.high = std::min(std::sqrt(lambda->high / N), 1.0);
    }
    return V;
}

void compareMedians(Median& test, const Options& options, std::optional<std::size_t> control) {
    const std::vector<GroupPair> pairs = pairsOfGroups(test.groups.size(), control);
    const auto stepsOf = [&](const GroupPair& pair) {
        return stepsToCompare(test.groups[pair.first].n + test.groups[pair.second].n);
    };
    LongCount count(sumOver(pairs, stepsOf));
    for (const GroupPair& pair : pairs) {
        const Probability p = probabilityOfPair(test.groups[pair.first], test.groups[pair.second]);
        test.comparisons.push_back({pair.first, pair.second, p, {}});
        count.add(stepsOf(pair));
    }
    std::vector<double> ranks;
    for (const Median::Group& group : test.groups) {
        ranks.push_back(group.share.value);
    }
    test.letters = adjustTogether(test.comparisons, ranks, options, control.has_value());
}

}  // namespace

Median median(SampleSpans samples, const Options& options, std::optional<std::size_t> control) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    const Groups groups = groupsOf(samples, options);
    const std::optional<std::size_t> controlGroup = groupOfControl(groups, control);
    Median test;
    test.n = groups.total;
    test.missing = groups.missing;
    test.grandMedian = grandMedianOf(groups.pooled());
    for (std::size_t g = 0; g < groups.values.size(); ++g) {
        test.groups.push_back(
            medianGroup(groups.values[g], groups.original[g], test.grandMedian, options.confidence));
        test.equal += test.groups.back().equal;
    }
    test.chiSquare = chiSquareOf(test.groups);
    if (!test.chiSquare) {
        return test;
    }
    if (options.exactSteps > 0) {
        test.exact = exactMedian(test.groups);
    }
    if (!test.exact) {
        test.sampled = sampledMedian(test, options);
    }
    test.cramerV = cramerOf(*test.chiSquare, static_cast<double>(test.n), options.confidence);
    compareMedians(test, options, controlGroup);
    return test;
}

std::string_view methodOf(const Median& test) {
    return test.exact ? "exact" : test.chiSquare ? "chi-square" : "none";
}

}  // namespace TBVNonPara::statistics
