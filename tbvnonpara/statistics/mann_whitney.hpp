#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/midranks.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// How the pairs of one value of each sample compare.
struct PairCounts {
    std::uint64_t greater = 0;  ///< the first is larger
    std::uint64_t equal = 0;    ///< both are equal
    std::uint64_t less = 0;     ///< the first is smaller
};

/// Two independent samples: which tends to be larger, by how much, and how sure that is.
struct MannWhitney {
    std::array<std::size_t, 2> n{};  ///< values of each sample
    std::size_t missing = 0;         ///< values that were left out
    Ties ties;                       ///< among the values of both
    PairCounts pairs;                ///< of the n1 n2 pairs
    /// u[0] counts the pairs in which the first sample is larger, equal ones half. (The report's U1 is u[1].)
    std::array<double, 2> u{};
    std::array<double, 2> rankSum{};  ///< of each sample, in midranks of both
    /// Untied below 50,000 pairs; given the ties while the count takes no more steps than allowed.
    std::optional<Tails> exact;
    /// With the variance of tied ranks (Hemelrijk 1952); none where all values are equal.
    std::optional<NormalApproximation> normal;
    std::optional<SampledTails> sampled;  ///< where that is asked for and nothing was counted
    /// Brunner and Munzel (2000), which does not need equal spreads; positive where the first sample is
    /// larger. None where the placements do not vary.
    std::optional<StudentTails> robust;
    /// Share of pairs in which the first is larger, equal ones half (Vargha and Delaney 2000), with the
    /// interval of Newcombe (2006, method 5) whose variance at 1/2 is that of the tied rank sum.
    Estimate superiority;
    /// The same as the matched share less the other: 2 A - 1, Cliff's delta.
    Estimate rankBiserial;
    /// Median of all differences first - second, in the unit of the data (Hodges and Lehmann 1963).
    OrderedEstimate shift;
    /// One sample.
    struct Group {
        std::size_t n = 0;       ///< values
        OrderedEstimate median;  ///< in the unit of the data (Thompson 1936)
        double meanRank = 0;     ///< among the values of both
    };
    std::array<Group, 2> groups;  ///< first and second
};

/// The test of Wilcoxon (1945) and of Mann and Whitney (1947). first, second: any length from 1, finite, in
/// any order. Time O(n log n), memory O(n), besides the exact count that `options` allow. Throws
/// std::invalid_argument that names the sample and position of a value that is not finite, for a sample
/// without values, and for a level out of its bounds.
[[nodiscard]] TBVNONPARA_API MannWhitney mannWhitney(std::span<const double> first,
                                                     std::span<const double> second,
                                                     const Options& options = {});

/// MannWhitney::superiority without its interval, of two samples that ascend and are not empty. O(n1 + n2).
[[nodiscard]] TBVNONPARA_API double superiority(std::span<const double> first,
                                                std::span<const double> second);

/// What P is shown: "exact", "normal" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const MannWhitney& test);

/// @cond
template <typename Member>
void visit(const PairCounts& pairs, Member& member) {
    member("greater", pairs.greater);
    member("equal", pairs.equal);
    member("less", pairs.less);
}

template <typename Member>
void visit(const MannWhitney::Group& group, Member& member) {
    member("n", group.n);
    member("median", group.median);
    member("meanRank", group.meanRank);
}

template <typename Member>
void visit(const MannWhitney& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("ties", test.ties);
        data("pairs", test.pairs);
    });
    member("statistic", [&](auto& statistic) {
        statistic("u", test.u);
        statistic("rankSum", test.rankSum);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("normal", test.normal);
        p("permutations", test.sampled);
    });
    member("robust", test.robust);
    member("effect", [&](auto& effect) {
        effect("superiority", test.superiority);
        effect("rankBiserial", test.rankBiserial);
        effect("shift", test.shift);
    });
    member("groups", test.groups);
}
/// @endcond

}  // namespace TBVNonPara::statistics
