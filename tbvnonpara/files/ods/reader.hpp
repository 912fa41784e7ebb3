#pragma once

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/file_cells.hpp"

namespace TBVNonPara::workbook {

/// Whether the parts are those of an .ods file or its template (.ots).
[[nodiscard]] bool isOds(const Parts& parts);

/// Reads all sheets, hidden ones as well, but not the copies of other files' cells. Dates are serial numbers
/// counted from the file's own day 0, times fractions of a day, per cents fractions, formulas the results
/// that the file holds; a formula without one is `uncalculated`. Raises the host's error, which names the
/// sheet and the cell.
[[nodiscard]] FileContents readOds(const Parts& parts);

/// Whether a file with this beginning is a document in one piece of XML, which .fods files are.
[[nodiscard]] bool isFlatOds(std::string_view beginning);

/// The same for the bytes of such a document. Raises the host's error for one that is no workbook.
[[nodiscard]] FileContents readFlatOds(std::string_view bytes);

}  // namespace TBVNonPara::workbook
