#pragma once

#include <string>
#include <vector>

#include "adapters/calc/addresses.hpp"

namespace TBVNonPara::Scenarios {

/// Where the formats of a placed report differ from those of the scratch workbook's report: weight, number
/// format, alignment, borders, colour and lowered characters, cell by cell, one line a cell.
[[nodiscard]] std::vector<std::string> lostFormats(const calc::DocumentRef& scratch,
                                                   const calc::SheetAreas& placed);

}  // namespace TBVNonPara::Scenarios
