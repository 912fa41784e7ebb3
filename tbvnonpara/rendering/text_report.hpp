#pragma once

#include <cstddef>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// Writes a report as aligned columns: numbers as the sheet shows them and to the right, headings over their
/// numbers, a rule where the sheet has a horizontal line. A title runs on over empty cells and widens no
/// column. A text of a cell is shortened to 80 columns, one that stands alone to 400. Blank ends of lines and
/// blank lines at the end are left out. With colour, bold cells are bold and rules faint. With a width,
/// nothing is wider: titles are folded, and of a table the columns that do not fit follow below, each time
/// behind its labels.
///
/// `width` is in columns of a terminal, 0 for any. UTF-8, lines end in LF. O(cells). Raises what Output
/// raises.
TBVNONPARA_API void writeText(const ReportBlock& report, bool colour, Output& output, std::size_t width = 0);

}  // namespace TBVNonPara::rendering
