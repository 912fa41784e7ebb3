#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// The sum of the squared rank sums of treatments when the midranks of each block (`blocks` rows of
/// `treatments` ranks, row by row) stand in any order. Counted over sorted vectors of sums. None where b (b
/// (k - 1) u + 1)^(k - 1) exceeds `steps` (u = 2 with ties).
[[nodiscard]] std::optional<ExactUpperTail> friedmanTail(std::span<const double> ranks,
                                                         std::size_t treatments, double steps);

}  // namespace TBVNonPara
