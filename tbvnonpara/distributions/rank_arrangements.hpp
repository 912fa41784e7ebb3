#pragma once

#include "tbvnonpara/distributions/exact_tails.hpp"
#include "tbvnonpara/distributions/rank_deal.hpp"

namespace TBVNonPara {

/// As many additions as going through all arrangements would take: ten for each, groups of one size being
/// alike.
[[nodiscard]] double stepsOfArrangements(const RankDeal& deal);

/// The statistic among all arrangements of the scores. Those of the lower half that give each group the same
/// sum are one, and each of the upper half that fills the groups is met with it.
[[nodiscard]] ExactUpperTail tailOfArrangements(const RankDeal& deal);

}  // namespace TBVNonPara
