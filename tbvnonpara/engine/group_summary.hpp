#pragma once

#include <optional>
#include <span>

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/grid.hpp"

namespace TBVNonPara {

/// Median, sum and count of each column of a grid.
struct GroupSummary {
    Array<double> medians;
    Array<double> sums;
    Array<Long> ns;
};

/// The summaries of the data (`raw`) and of the ranks (`rank`).
struct GroupSummaries {
    GroupSummary raw;
    GroupSummary rank;
};

/// Summarises each column of the data and of the ranks. Without counts all rows of a column are its values.
/// With at most as many counts as the data has columns, counts(c) holds for column c of both; with more, the
/// entries behind the data's columns are those of the rank columns. A column's values are its last n cells
/// after an ascending sort (cells of a short group that were never filled hold 0 and sort first).
[[nodiscard]] TBVNONPARA_API GroupSummaries
summariseGroups(const Grid<double>& data, const Grid<double>& ranks, const ArrayUtility& utility,
                const std::optional<Array<Long>>& counts = std::nullopt);

/// Summarises the columns of a grid, all rows of each.
[[nodiscard]] TBVNONPARA_API GroupSummary summariseColumns(const Grid<double>& values,
                                                           const ArrayUtility& utility);

/// Summarises lists as they are.
[[nodiscard]] TBVNONPARA_API GroupSummary summariseLists(std::span<const Array<double>> lists,
                                                         const ArrayUtility& utility);

}  // namespace TBVNonPara
