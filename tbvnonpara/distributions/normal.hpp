#pragma once

#include <functional>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The lower tail of the standard normal distribution as a function: a host's own, or normalLowerTail.
using NormalTail = std::function<double(double z)>;

/// Lower tail of the standard normal distribution, erfc(-z / sqrt(2)) / 2, within two units in the last
/// place for every z that is a number, also where the result is subnormal.
[[nodiscard]] TBVNONPARA_API double normalLowerTail(double z);

}  // namespace TBVNonPara
