#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"

namespace TBVNonPara::rendering {

/// Writes the details below a report as one tidy table: an empty line, a heading, a row for each effect, each
/// way to get P, each group and each comparison. O(groups + comparisons). Raises what Output raises.
TBVNONPARA_API void writeDetailsCsv(const Details& details, Output& output, const CsvFields& fields = {});

}  // namespace TBVNonPara::rendering
