#pragma once

#include "companion/ArrayUtility.hpp"
#include "core/array.hpp"
#include "core/cell_value.hpp"
#include "core/grid.hpp"

namespace TBVNonPara {

/// The engine's working table, n x 4: one row per observation.
using DataTable = Grid<double>;

/// The columns of a data table: the value to be ranked, a group code, the rank (0 while unranked) and the
/// row's position when the table was built.
enum DataColumn : Index { Value = 1, Group, Rank, Sequence };

/// The group codes of paired differences.
constexpr double Positive = 1;
constexpr double Negative = 2;
constexpr double Zero = 3;

/// The sizes of tied groups in ascending order of value. Without a tie the list has one entry, 0.
using TieCounts = Array<Long>;

struct RankSums {
    double first = 0;
    double second = 0;
    Long firstCount;
    Long secondCount;
};

/// The differences first - second of the rows in which both cells hold something: column 1 the absolute
/// difference, column 2 its sign code. The difference goes through single-precision text, so 5.1 - 5.0 is
/// 0.1.
[[nodiscard]] DataTable PairedDifferences(const ValueGrid& first, const ValueGrid& second);

/// Sorts the rows of the table by one column.
void sortBy(DataTable& table, const ArrayUtility& utility, DataColumn column);

/// Sorts the table by value and writes average ranks; with `excludeZeros` rows of value 0 keep rank 0 and the
/// ranks start behind them. Returns the tie counts.
TieCounts RankValues(DataTable& table, const ArrayUtility& utility, bool excludeZeros);

/// Adds the ranks and the numbers of rows of groups 1 and 2 to `sums`; other groups are skipped.
void SumRanksByGroup(const DataTable& table, RankSums& sums);

/// The sum of t^3 - t over the tied groups.
[[nodiscard]] double tieSum(const TieCounts& tieCounts);

}  // namespace TBVNonPara
