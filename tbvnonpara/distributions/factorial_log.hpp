#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/double_double.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// ln n!; 0 for n < 1. A double would keep no more than 8 decimals of the logarithm
/// of a million's, and with them as many digits of a probability.
[[nodiscard]] TBVNONPARA_API DoubleDouble FactorialLog(Long n);

}  // namespace TBVNonPara
