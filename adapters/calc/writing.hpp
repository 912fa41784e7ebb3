#pragma once

#include <span>

#include "adapters/calc/cell_area.hpp"
#include "adapters/calc/documents.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::calc {

/// Writes values as they are: a text stays a text, whatever it looks like, and is never read as a formula.
void writeCell(const DocumentRef& document, const SheetRef& sheet, std::int32_t column, std::int32_t row,
               const CellValue& value);

/// A block of values in one piece, as large as the area.
void writeCells(const DocumentRef& document, const SheetRef& sheet, const CellArea& area,
                const ValueGrid& values);

}  // namespace TBVNonPara::calc
