#pragma once

#include "adapters/calc/cell_area.hpp"
#include "adapters/calc/documents.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::calc {

/// The values of a block of cells, read in one piece. A cell that shows TRUE or FALSE is a Boolean, a formula
/// that failed is its error, and an empty cell differs from one that holds an empty text.
[[nodiscard]] ValueGrid readCells(const DocumentRef& document, const SheetRef& sheet, const CellArea& area);

}  // namespace TBVNonPara::calc
