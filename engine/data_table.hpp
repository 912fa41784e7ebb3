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

/// Sorts the rows of the table by one column.
void sortBy(DataTable& table, const ArrayUtility& utility, DataColumn column);

/// Sorts the table by value and writes average ranks; with `excludeZeros` rows of value 0 keep rank 0 and the
/// ranks start behind them. Returns the tie counts.
TieCounts RankValues(DataTable& table, const ArrayUtility& utility, bool excludeZeros);

}  // namespace TBVNonPara
