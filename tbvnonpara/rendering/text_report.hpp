#pragma once

#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// Writes a report as aligned columns: numbers as the sheet shows them and to the right, headings over their
/// numbers, a rule where the sheet has a horizontal line. A title runs on over empty cells and widens no
/// column. Blank ends of lines and blank lines at the end are left out. With colour, bold cells are bold and
/// rules faint.
void writeText(const ReportBlock& report, bool colour, Output& output);

}  // namespace TBVNonPara::rendering
