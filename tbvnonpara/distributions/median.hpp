#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// The number of values above the grand median in each group, `above`, among all ways to deal as many to
/// groups of these sizes: tables whose chi-square is as large as the observed one. None where prod(n_g + 1)
/// without the largest group exceeds `tables`, but always for two groups.
[[nodiscard]] std::optional<ExactUpperTail> medianTail(std::span<const std::size_t> sizes,
                                                       std::span<const std::size_t> above, double tables);

}  // namespace TBVNonPara
