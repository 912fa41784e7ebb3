#pragma once

#include <string_view>
#include <vector>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/labelled_column.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The columns of an address, area by area.
[[nodiscard]] TBVNONPARA_API std::vector<LabelledColumn> columnsAt(
    const workbook::EmbeddedApplication& application, std::string_view address, bool headers);

/// The columns that a test reads: the first range's, then the second's. Read before a report can cover them.
[[nodiscard]] TBVNONPARA_API std::vector<LabelledColumn> columnsOf(
    const workbook::EmbeddedApplication& application, const ChosenRanges& ranges);

}  // namespace TBVNonPara::analysis
