#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// Twice the sum over blocks of each rank times the number of its treatment (1, 2, ...) when the midranks of
/// every block (`treatments` ranks, block by block) stand in any order; `observed` is such a sum (Page 1963).
/// None where that takes more than `steps` additions.
[[nodiscard]] std::optional<ExactTails> pageTails(std::span<const double> ranks, std::size_t treatments,
                                                  Score observed, double steps);

}  // namespace TBVNonPara
