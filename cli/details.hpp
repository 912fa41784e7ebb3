#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.hpp"
#include "cli/progress.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"

namespace TBVNonPara::cli {

/// What the details are computed from, as it is before a report can cover it; nothing where none were asked
/// for.
[[nodiscard]] std::vector<LabelledColumn> columnsInDetail(const workbook::EmbeddedApplication& application,
                                                          const Arguments& arguments,
                                                          const analysis::ChosenRanges& ranges);

/// Details never keep a report back: where they cannot be computed, or Ctrl+C ends a long count, a warning
/// says why.
[[nodiscard]] std::optional<Details> findDetails(const Arguments& arguments,
                                                 const std::vector<LabelledColumn>& columns,
                                                 const clsNonParaBO& engine, Progress& progress,
                                                 std::vector<std::string>& warnings);

/// The details below a report; nothing where there are none. A width of 0 is that of a file.
void writeDetailsBelow(const std::optional<Details>& details, rendering::Output& output, std::size_t width);
void writeDetailsBelow(const std::optional<Details>& details, rendering::Output& output,
                       const rendering::CsvFields& fields);

/// Places the details that a workbook is saved with; nothing for other forms. Where they cannot be placed, a
/// warning says why.
void placeDetails(const Arguments& arguments, const std::optional<Details>& details,
                  analysis::FinishedTest& finished, std::vector<std::string>& warnings);

/// A line on a P that the report's four decimals show as 0.0000 and nothing else tells; empty for any other.
[[nodiscard]] std::string lineOnSmallP(const Arguments& arguments, const clsNonParaBO& engine);

}  // namespace TBVNonPara::cli
