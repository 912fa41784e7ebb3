#pragma once

#include <map>
#include <utility>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/double_double.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara {

/// The U that speaks for the alternative: the larger one (on equality U1), U2 for the first variable greater,
/// U1 for the first variable smaller.
[[nodiscard]] TBVNONPARA_API double chooseU(double U1, double U2, TBVNPTails tails) noexcept;

/// The part of all arrangements of n1 and n2 values without ties whose U is at least this, a half rounded to
/// the odd number beside it (U + 1 to the even one). Takes time and memory in proportion to
/// n1 x n2 x min(n1, n2) and n1 x n2. Raises SubscriptOutOfRange for a U below -1.
[[nodiscard]] TBVNONPARA_API double mannWhitneyUpperTail(Long n1, Long n2, double U);

/// The same for every U from 0 to n1 x n2 at once, at the place that is U.
[[nodiscard]] TBVNONPARA_API std::vector<double> mannWhitneyUpperTails(Long n1, Long n2);

/// Counts of arrangements that are kept for sizes of samples that come again, as where many columns are
/// tested by the same groups: up to 64 MB. For one thread.
class TBVNONPARA_API MannWhitneyCounts {
 public:
    /// What `mannWhitneyUpperTail` gives, to the last bit.
    [[nodiscard]] double upperTail(Long n1, Long n2, double U);

 private:
    struct Table {
        Array<DoubleDouble> frequencies;  ///< of U = 0, 1, ...
        double total = 0;
    };

    const Table& tableFor(Long n1, Long n2);

    std::map<std::pair<Index, Index>, Table> m_Tables;
    Index m_Size = 0;  ///< of all tables
};

/// Probability of U1 and U2 for samples of n1 and n2. Exact below 50,000 for n1 x n2, whatever the ties; else
/// by the normal approximation with corrections for ties and continuity, which alone calls `normal`. Tails
/// outside the list gives the one-tailed probability of the larger U. Counts are taken from `kept` if there
/// is one.
[[nodiscard]] TBVNONPARA_API double mannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum,
                                                 TBVNPTails tails, const NormalTail& normal,
                                                 MannWhitneyCounts* kept = nullptr);

}  // namespace TBVNonPara
