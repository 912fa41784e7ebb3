#pragma once

#include <string>
#include <vector>

#include "adapters/workbook/container.hpp"
#include "adapters/workbook/spreadsheet_file_cells.hpp"
#include "adapters/workbook/xlsx_cell.hpp"

namespace TBVNonPara::workbook {

[[nodiscard]] std::vector<Text> readSharedStrings(const Parts& parts, const std::string& part);

/// Reads the cells of a worksheet. Rows and cells without a reference follow the one before them.
void readXlsxSheet(const Parts& parts, const std::string& part, const XlsxTexts& texts, FileCells& cells);

}  // namespace TBVNonPara::workbook
