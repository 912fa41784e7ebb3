#pragma once

#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::analysis {

/// One column of cells as a column of a table. Raises the host's error for a formula without its result.
[[nodiscard]] reshaping::Column tableColumn(const workbook::Sheet& sheet, const Rectangle& cells,
                                            bool headers);

/// The column in the rows of the sheet's used area; such formulas are left as they are.
[[nodiscard]] reshaping::Column wholeColumn(const workbook::Sheet& sheet, const Rectangle& used, Index number,
                                            bool headers);

}  // namespace TBVNonPara::analysis
