#pragma once

#include <span>

#include "companion/ArrayUtility.hpp"
#include "core/array.hpp"

namespace TBVNonPara {

/// The sizes of tied groups in ascending order of value. Without a tie the list has one entry, 0.
using TieCounts = Array<Long>;

/// Ranks values that stay where they are: the place of each in `ranks` receives its rank, equal values the
/// mean of their ranks. With `excludeZeros` a value of 0 receives 0 and is not counted in the ranks of the
/// others. Returns the tie counts.
TieCounts RankValues(std::span<const double> values, std::span<double> ranks, const ArrayUtility& utility,
                     bool excludeZeros);

/// Rank sums and numbers of rows of groups 1 and 2.
struct RankSums {
    double first = 0;
    double second = 0;
    Long firstCount;
    Long secondCount;
};

/// Adds the ranks and the numbers of rows of groups 1 and 2 to `sums`; other groups are skipped. groupOf(i)
/// is the group of row i, counted from 1.
template <typename GroupOf>
void SumRanksByGroup(const Array<double>& ranks, GroupOf groupOf, RankSums& sums) {
    Index i = 0;
    for (const double rank : ranks.elements()) {
        i += 1;
        const int group = groupOf(i);
        sums.first += group == 1 ? rank : 0;
        sums.second += group == 2 ? rank : 0;
        sums.firstCount += group == 1 ? 1 : 0;
        sums.secondCount += group == 2 ? 1 : 0;
    }
}

/// The sum of t^3 - t over the tied groups.
[[nodiscard]] double tieSum(const TieCounts& tieCounts) noexcept;

}  // namespace TBVNonPara
