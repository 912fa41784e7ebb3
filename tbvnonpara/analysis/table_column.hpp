#pragma once

#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::analysis {

/// One column of cells as a column of a table. Raises the host's error for a formula without its result.
[[nodiscard]] reshaping::Column tableColumn(const workbook::Sheet& sheet, const Rectangle& cells,
                                            bool headers);

/// The column from the sheet's first row with data to its last; such formulas are left as they are.
[[nodiscard]] reshaping::Column wholeColumn(const workbook::Sheet& sheet, Index number, bool headers);

}  // namespace TBVNonPara::analysis
