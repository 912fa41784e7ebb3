#pragma once

#include <span>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara {

/// The part of all ways to give these ranks a sign, 0 for an unranked one, in which those of one sign sum to
/// at most T. Ranks are whole numbers or halves. Takes time in proportion to their number times T. Raises
/// Overflow for 1024 ranks and more.
[[nodiscard]] TBVNONPARA_API double signedRankLowerTail(std::span<const double> ranks, double T);

/// The same as a probability: doubled when two-tailed and never above 1.
[[nodiscard]] TBVNONPARA_API double wilcoxonTDist(std::span<const double> ranks, double T, bool oneTailed);

/// What the variance of T needs of the ranked differences: how many there are, how many of them are zeros,
/// and the sum of t^3 - t over their ties.
struct RankedDifferences {
    double n = 0;
    double zeros = 0;
    double tieSum = 0;
};

/// The same by the normal approximation without continuity correction; Z receives |Z|, and the signed Z
/// before `normal` is called.
[[nodiscard]] TBVNONPARA_API double wilcoxonZApprox(const RankedDifferences& ranked, double T, bool oneTailed,
                                                    double& Z, const NormalTail& normal);

}  // namespace TBVNonPara
