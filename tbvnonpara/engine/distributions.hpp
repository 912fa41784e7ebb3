#pragma once

#include <span>

#include "tbvnonpara/core/double_double.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/engine/data_table.hpp"
#include "tbvnonpara/host/WorksheetHost.hpp"

namespace TBVNonPara {

/// ln n!; 0 for n < 1. A double would keep no more than 8 decimals of the logarithm
/// of a million's, and with them as many digits of a probability.
[[nodiscard]] DoubleDouble FactorialLog(Long n);

/// The U that speaks for the alternative: the larger one (on equality U1), U2 for the first variable greater,
/// U1 for the first variable smaller.
[[nodiscard]] double chooseU(double U1, double U2, TBVNPTails tails) noexcept;

/// Probability of U1 and U2 for samples of n1 and n2. Exact below 50,000 for n1 x n2, whatever the ties; else
/// by the normal approximation with corrections for ties and continuity. Tails outside the list gives the
/// one-tailed probability of the larger U. The host is asked by the approximation alone.
[[nodiscard]] double MannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                                  const ObjectRef<WorksheetHost>& host);

/// Exact probability that the signed-rank sum of differences with these ranks, 0 for an unranked one, is at
/// most T.
[[nodiscard]] double WilcoxonTDist(std::span<const double> ranks, double T, bool oneTailed);

/// The same for a ranked table of differences.
[[nodiscard]] double WilcoxonTDist(const DataTable& table, double T, bool oneTailed);

/// The same by the normal approximation without continuity correction; Z receives |Z|.
[[nodiscard]] double WilcoxonZApprox(const DataTable& table, double T, bool oneTailed, double& Z,
                                     const ObjectRef<WorksheetHost>& host);

/// What the variance of T needs of the ranked differences: how many there are, how many of them are zeros,
/// and the sum of t^3 - t over their ties.
struct RankedDifferences {
    double n = 0;
    double zeros = 0;
    double tieSum = 0;
};

[[nodiscard]] double WilcoxonZApprox(const RankedDifferences& ranked, double T, bool oneTailed, double& Z,
                                     const ObjectRef<WorksheetHost>& host);

/// Probability of a rank correlation of n pairs: exact up to 7 pairs, above by an Edgeworth series; 1 for
/// fewer than 2 pairs. Tails outside the list gives the upper tail of |rs|.
[[nodiscard]] double SpearmanP(Long n, double rs, TBVNPTails tails, const ObjectRef<WorksheetHost>& host);

}  // namespace TBVNonPara
