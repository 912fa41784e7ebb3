#pragma once

#include <string_view>
#include <vector>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/labelled_column.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The columns of an address, area by area: all of its cells, blank ones too. With headers the first row of
/// each area has the labels; without, a column is called "Column B". O(cells). Raises the host's error for
/// what is no address.
[[nodiscard]] TBVNONPARA_API std::vector<LabelledColumn> columnsAt(
    const workbook::EmbeddedApplication& application, std::string_view address, bool headers);

/// @cond
/// The columns that a test reads: the first range's, then the second's. Read before a report can cover them.
[[nodiscard]] TBVNONPARA_API std::vector<LabelledColumn> columnsOf(
    const workbook::EmbeddedApplication& application, const ChosenRanges& ranges);
/// @endcond

}  // namespace TBVNonPara::analysis
