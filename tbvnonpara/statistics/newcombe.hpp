#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/intervals.hpp"

namespace TBVNonPara::statistics {

/// The share A of n1 n2 pairs with the interval of Newcombe (2006, method 5): all theta with
/// |A - theta| = z sqrt(V(theta)). The factor of tied ranks is ours; without spread there is no interval.
[[nodiscard]] TBVNONPARA_API Estimate superiorityOf(double A, double n1, double n2, double tieFactor,
                                                    double confidence);

}  // namespace TBVNonPara::statistics
