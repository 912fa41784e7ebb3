#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/groups.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Do values rise from each group, or treatment, to the next? "greater" is that they rise. Of groups by
/// Terpstra (1952) and Jonckheere (1954), of blocks by Page (1963).
struct Trend {
    std::string_view test;       ///< "jonckheere-terpstra" or "page"
    double statistic = 0;        ///< J, or L
    double expected = 0;         ///< without a trend
    double correlation = 0;      ///< from -1 to 1: Kendall's tau-b of group and value, or Page's rho
    std::optional<Tails> exact;  ///< while the count takes no more steps than allowed
    std::optional<NormalApproximation> normal;  ///< none where the statistic does not vary
};

/// @cond
/// The trend of Terpstra (1952) and Jonckheere (1954): J counts the pairs of values of two groups in which
/// the later group's is larger, equal ones half. The variance is corrected for ties (Lehmann 1975). None
/// where all values are equal. O(N log N) and the exact count.
[[nodiscard]] TBVNONPARA_API std::optional<Trend> jonckheereTerpstra(const Groups& groups, double exactSteps);

/// The trend of Page (1963): L is the sum of rank times number of treatment; rho, from L, is the mean of the
/// blocks' Spearman coefficients (Lyerly 1952). `ranks`: midranks block by block. None where all blocks are
/// tied throughout. O(b k) and the exact count.
[[nodiscard]] TBVNONPARA_API std::optional<Trend> pageTrend(std::span<const double> ranks,
                                                            std::size_t treatments, double exactSteps);

template <typename Member>
void visit(const Trend& trend, Member& member) {
    member("test", trend.test);
    member("statistic", trend.statistic);
    member("expected", trend.expected);
    member("correlation", trend.correlation);
    member("exact", trend.exact);
    member("normal", trend.normal);
}
/// @endcond

}  // namespace TBVNonPara::statistics
