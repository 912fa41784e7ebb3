#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// The sum of the ranks of the first sample among all ways to deal `ranks` (midranks or any halves of whole
/// numbers that ascend) into a sample of `size` and the rest: shift algorithm of Streitberg and Roehmel
/// (1986) as the chances of urns, in which every term is positive. None where it would take more than `steps`
/// additions: N m R, with the size m of the smaller sample and the range R of its sums; or where a tail falls
/// below smallestCounted. Memory O(m R).
[[nodiscard]] std::optional<ExactTails> rankSumTails(std::span<const double> ranks, std::size_t size,
                                                     double rankSum, double steps);

/// The chances of the sums 0, 1, 2, ... of the ranks with a positive sign, for whole ranks. O(n times their
/// sum).
[[nodiscard]] std::vector<double> signedRankChances(std::span<const std::int64_t> ranks);

/// The sum of the ranks with a positive sign among all ways to sign `ranks` (halves of whole numbers above
/// 0). None where m times the sum of the ranks exceeds `steps` or a tail falls below smallestCounted. Memory
/// O(sum of the ranks).
[[nodiscard]] std::optional<ExactTails> signedRankTails(std::span<const double> ranks, double positiveSum,
                                                        double steps);

}  // namespace TBVNonPara
