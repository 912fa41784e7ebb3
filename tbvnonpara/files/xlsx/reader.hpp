#pragma once

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/file_cells.hpp"

namespace TBVNonPara::workbook {

/// Whether the parts are those of an .xlsx file or one of its siblings (.xlsm, .xltx, .xltm).
[[nodiscard]] bool isXlsx(const Parts& parts);

/// Reads all worksheets, hidden ones as well. Dates and times are their serial numbers in the workbook's own
/// date system, per cents their fractions, formulas the results that the file holds; a formula without one is
/// `uncalculated`. Raises the host's error, which names the part and the cell.
[[nodiscard]] FileContents readXlsx(const Parts& parts);

}  // namespace TBVNonPara::workbook
