#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/analysis/each_column.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"
#include "tbvnonpara/rendering/output.hpp"

namespace TBVNonPara::rendering {

/// Columns that were tested each by itself, as one table with a row for each: its header, the results by name
/// (several values of one name as "df.1", "df.2"), how many values, pairs or blocks were left out, and what
/// is wrong where there are no results. Details are further columns: P, adjusted over the rows, and effects.
TBVNONPARA_API void writeColumnsAsCsv(const std::vector<analysis::ColumnTest>& tests, const CsvFields& fields,
                                      Output& output);

/// The same as one JSON object: the test's name and a list of the columns, each with its details.
TBVNONPARA_API void writeColumnsAsJson(std::string_view test, const std::vector<analysis::ColumnTest>& tests,
                                       Output& output);

/// P of each column's details, alone and adjusted over all of them.
[[nodiscard]] TBVNONPARA_API DetailPage columnsPage(const std::vector<analysis::ColumnTest>& tests,
                                                    const DetailChoices& choices);

}  // namespace TBVNonPara::rendering
