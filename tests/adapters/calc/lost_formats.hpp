#pragma once

#include <string>
#include <vector>

#include "adapters/calc/addresses.hpp"

namespace TBVNonPara::Scenarios {

/// Where the formats of a placed report differ from those of the scratch workbook's report: weight, number
/// format, alignment, borders and colour, a line for each block of cells that is formatted alike in both, and
/// lowered characters, a line for each cell. The addresses count from the report's first cell.
[[nodiscard]] std::vector<std::string> lostFormats(const calc::DocumentRef& scratch,
                                                   const calc::SheetAreas& placed);

}  // namespace TBVNonPara::Scenarios
