#pragma once

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara {

/// The U that speaks for the alternative: the larger one (on equality U1), U2 for the first variable greater,
/// U1 for the first variable smaller.
[[nodiscard]] double chooseU(double U1, double U2, TBVNPTails tails) noexcept;

/// The part of all arrangements of n1 and n2 values without ties whose U is at least this, rounded half to
/// even. Takes time and memory in proportion to n1 x n2 x min(n1, n2) and n1 x n2. Raises SubscriptOutOfRange
/// for a U below -1.
[[nodiscard]] double mannWhitneyUpperTail(Long n1, Long n2, double U);

/// Probability of U1 and U2 for samples of n1 and n2. Exact below 50,000 for n1 x n2, whatever the ties; else
/// by the normal approximation with corrections for ties and continuity, which alone calls `normal`. Tails
/// outside the list gives the one-tailed probability of the larger U.
[[nodiscard]] double mannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                                  const NormalTail& normal);

}  // namespace TBVNonPara
