#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Two of several groups, counted from 0.
struct GroupPair {
    std::size_t first = 0;
    std::size_t second = 0;
};

/// All pairs of `groups` groups; with a control those that hold it alone.
[[nodiscard]] TBVNONPARA_API std::vector<GroupPair> pairsOfGroups(std::size_t groups,
                                                                  std::optional<std::size_t> control);

/// About how many steps of an exact count two groups take that hold so many values together: their values and
/// a probability.
[[nodiscard]] inline double stepsToCompare(std::size_t values) {
    return 8 * (static_cast<double>(values) + 100);
}

/// The steps of all pairs.
template <typename StepsOf>
[[nodiscard]] double sumOver(const std::vector<GroupPair>& pairs, StepsOf stepsOf) {
    return std::transform_reduce(pairs.begin(), pairs.end(), 0.0, std::plus<>(), stepsOf);
}

/// The probabilities of comparisons as they are adjusted for each other, in their order.
[[nodiscard]] TBVNONPARA_API std::vector<Probability> adjusted(const std::vector<Probability>& probabilities,
                                                               Adjustment adjustment);

/// Letters of groups: two that share one do not differ (insert and absorb, Piepho 2004). `ranks` orders the
/// groups, largest first; `differ` are the pairs that do. Empty above 200 groups or 2,000 letters, where
/// nobody reads them.
[[nodiscard]] TBVNONPARA_API std::optional<std::vector<std::string>> lettersOf(
    const std::vector<double>& ranks, const std::vector<GroupPair>& differ);

/// Fills in `adjusted` of comparisons by their `p`. Returns the letters of the groups whose places in the
/// order `ranks` gives, none where all comparisons are with one control.
template <typename Comparison>
[[nodiscard]] std::optional<std::vector<std::string>> adjustTogether(std::vector<Comparison>& comparisons,
                                                                     const std::vector<double>& ranks,
                                                                     const Options& options,
                                                                     bool withControl) {
    std::vector<Probability> probabilities(comparisons.size());
    std::ranges::transform(comparisons, probabilities.begin(), &Comparison::p);
    const std::vector<Probability> together = adjusted(probabilities, options.adjustment);
    std::vector<GroupPair> differ;
    for (std::size_t i = 0; i < together.size(); ++i) {
        comparisons[i].adjusted = together[i];
        if (together[i].value <= 1 - options.confidence) {
            differ.push_back({comparisons[i].first, comparisons[i].second});
        }
    }
    return withControl ? std::nullopt : lettersOf(ranks, differ);
}

}  // namespace TBVNonPara::statistics
