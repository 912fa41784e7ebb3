#pragma once

#include <vector>

#include "tbvnonpara/reshaping/groups.hpp"

namespace TBVNonPara::reshaping {

/// Columns of equal length, one for each group (a treatment), and the number of each row's block.
struct MatchedBlocks {
    std::vector<Column> columns;
    std::vector<std::int32_t> blocks;
};

/// The values of each group, block by block in the order in which the blocks come first. A block without a
/// value of some group has an empty cell there; one without any is not there. Raises a Refusal that names a
/// block's second value of a group.
[[nodiscard]] MatchedBlocks matchBlocks(const Column& values, const Groups& groups, const Column& blockColumn,
                                        const Groups& blocks);

/// Where columns of equal length have their first empty cell, row by row, counted from 0.
struct Gap {
    std::size_t row = 0;
    std::size_t column = 0;
    std::size_t rows = 0;  ///< how many rows have one
};

[[nodiscard]] Gap firstGap(const std::vector<Column>& columns);

/// Leaves out each row in which one of the columns is empty; returns how many were.
std::size_t dropGaps(std::vector<Column>& columns);

/// Which cells of a column are not empty.
[[nodiscard]] std::vector<bool> filledCells(const Column& column);

/// Leaves out a column's empty cells; returns how many were.
std::size_t dropEmpty(Column& column);

}  // namespace TBVNonPara::reshaping
