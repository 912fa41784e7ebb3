#pragma once

#include "tbvnonpara/core/grid.hpp"

namespace TBVNonPara {

/// A ranked table, n x 4: one row per observation, ascending by value.
using DataTable = Grid<double>;

/// The columns of a data table: the value that was ranked, a group code, the rank (0 for an unranked row) and
/// the row's position before the values ascended.
enum DataColumn : Index { Value = 1, Group, Rank, Sequence };

/// The group codes of paired differences.
constexpr int Positive = 1;
constexpr int Negative = 2;
constexpr int Zero = 3;

}  // namespace TBVNonPara
