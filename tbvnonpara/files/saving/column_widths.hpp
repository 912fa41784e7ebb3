#pragma once

#include <vector>

#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

/// How wide the columns of a block must be for its numbers and headings, in characters. Texts that run on
/// over empty cells widen nothing; of long columns the beginning is measured.
[[nodiscard]] std::vector<double> columnWidths(const Sheet& sheet, const Rectangle& area);

}  // namespace TBVNonPara::workbook
