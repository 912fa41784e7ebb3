#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// The sum of R_g^2 / n_g over the groups among all ways to deal `ranks` (midranks in ascending order) into
/// groups of these sizes, none empty; `rankSums` are the observed ones. Counted over how many ranks each
/// group but the largest holds and what they sum to, or one arrangement after the other where there are fewer
/// of these. None where either takes more than `steps`.
[[nodiscard]] std::optional<ExactUpperTail> kruskalWallisTail(std::span<const double> ranks,
                                                              std::span<const std::size_t> sizes,
                                                              std::span<const double> rankSums, double steps);

}  // namespace TBVNonPara
