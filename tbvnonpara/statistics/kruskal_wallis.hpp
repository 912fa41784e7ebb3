#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/groups.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/midranks.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/trend.hpp"

namespace TBVNonPara::statistics {

/// Several independent samples: do they differ, which ones, and by how much.
struct KruskalWallis {
    std::size_t n = 0;        ///< values of all groups, N
    std::size_t missing = 0;  ///< values that were left out
    Ties ties;                ///< among all values
    /// All ways to deal the ranks to the groups, while the count takes no more steps than allowed.
    std::optional<ExactUpper> exact;
    std::optional<ChiSquare> chiSquare;   ///< H, corrected for ties; none where all values are equal
    std::optional<SampledUpper> sampled;  ///< where that is asked for and nothing was counted
    std::optional<FRatio> f;              ///< of the ranks, with N - k degrees of freedom
    /// H / (N - 1) (Tomczak and Tomczak 2014), the part of the ranks' variation that the groups explain; the
    /// interval comes from noncentral F (Steiger 2004).
    std::optional<Estimate> epsilonSquared;
    /// One group.
    struct Group {
        std::size_t original = 0;  ///< which of the given samples, from 0
        std::size_t n = 0;         ///< values
        OrderedEstimate median;    ///< in the unit of the data (Thompson 1936)
        double meanRank = 0;       ///< among all values, 1 to N
    };
    std::vector<Group> groups;  ///< those with values
    /// Dunn (1964), two-tailed; positive where the first group ranks higher.
    struct Comparison {
        std::size_t first = 0;   ///< in `groups`, from 0
        std::size_t second = 0;  ///< in `groups`, from 0
        double z = 0;            ///< standard normal value
        double superiority = 0;  ///< share of pairs of values in which the first is larger, equal ones half
        Probability p;           ///< two-tailed
        Probability adjusted;    ///< for all comparisons, by Options::adjustment
    };
    std::vector<Comparison> comparisons;              ///< all pairs, or those with the control
    std::optional<Trend> trend;                       ///< where that is asked for
    std::optional<std::vector<std::string>> letters;  ///< groups that share one do not differ at 1 - level
};

/// The test of Kruskal and Wallis (1952). `samples`: a span a group, of any lengths; those without values are
/// left out. `control`: compare with this one of the given samples alone, from 0. Throws
/// std::invalid_argument that names group and position of a value that is not finite, where fewer than two
/// groups have values, where the control is none of them, or for a level out of its bounds. Time O(N log N +
/// k N + k^2), memory O(N + k^2), besides the exact count.
[[nodiscard]] TBVNONPARA_API KruskalWallis kruskalWallis(SampleSpans samples, const Options& options = {},
                                                         std::optional<std::size_t> control = {});

/// What P is shown: "exact", "chi-square" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const KruskalWallis& test);

/// @cond
template <typename Member>
void visit(const KruskalWallis::Group& group, Member& member) {
    member("n", group.n);
    member("median", group.median);
    member("meanRank", group.meanRank);
}

template <typename Member>
void visit(const KruskalWallis::Comparison& comparison, Member& member) {
    member("first", comparison.first + 1);
    member("second", comparison.second + 1);
    member("z", comparison.z);
    member("superiority", comparison.superiority);
    member("p", comparison.p);
    member("adjusted", comparison.adjusted);
}

template <typename Member>
void visit(const KruskalWallis& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("ties", test.ties);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("chiSquare", test.chiSquare);
        p("f", test.f);
        p("permutations", test.sampled);
    });
    member("effect", [&](auto& effect) { effect("epsilonSquared", test.epsilonSquared); });
    member("groups", test.groups);
    member("comparisons", test.comparisons);
    member("letters", test.letters);
    member("trend", test.trend);
}
/// @endcond

}  // namespace TBVNonPara::statistics
