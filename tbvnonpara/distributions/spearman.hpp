#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara {

/// Probability of a rank correlation of n pairs: exact up to 7 pairs, above by an Edgeworth series, which
/// alone calls `normal`; 1 for fewer than 2 pairs. Tails outside the list gives the upper tail of |rs|.
[[nodiscard]] TBVNONPARA_API double spearmanP(Long n, double rs, TBVNPTails tails, const NormalTail& normal);

}  // namespace TBVNonPara
