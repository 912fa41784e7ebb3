#pragma once

#include "core/array.hpp"
#include "core/grid.hpp"
#include "engine/data_table.hpp"

namespace TBVNonPara {

/// The observations of several groups as one data table, group by group, and how many each group has.
struct PooledGroups {
    DataTable table;
    Array<Long> counts;
};

/// Pools the non-empty cells of a grid, column by column and from top to bottom; the group code is the
/// column. Raises TypeMismatch for a cell that is no number.
[[nodiscard]] PooledGroups poolGroups(const ValueGrid& values);

/// Values and ranks, rows x groups, each group's observations without gaps from the top of its column; the
/// cells below them are 0.
struct GroupGrids {
    Grid<double> data;
    Grid<double> ranks;
};

/// Spreads a pooled table, in whatever order its rows are, back over grids with this many rows.
[[nodiscard]] GroupGrids spreadOverGroups(const PooledGroups& groups, Long rows);

/// n^3.
[[nodiscard]] double cubed(Long n) noexcept;

}  // namespace TBVNonPara
