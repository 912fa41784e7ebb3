#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The values at two places, counted from 0 and first <= second < first + 2, that they would take if they
/// ascended; 0 and -0 keep their order.
[[nodiscard]] TBVNONPARA_API std::array<double, 2> valuesAtPlaces(std::span<const double> values,
                                                                  std::size_t first, std::size_t second);

/// The median of one value or more; of an even number the mean of the two in the middle.
[[nodiscard]] TBVNONPARA_API double medianOf(std::span<const double> values);

}  // namespace TBVNonPara
