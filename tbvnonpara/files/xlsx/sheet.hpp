#pragma once

#include <string>

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/file_cells.hpp"
#include "tbvnonpara/files/xlsx/cell.hpp"

namespace TBVNonPara::workbook {

/// Reads the cells of a worksheet. Rows and cells without a reference follow the one before them.
void readXlsxSheet(const Parts& parts, const std::string& part, const XlsxTexts& texts, FileCells& cells);

}  // namespace TBVNonPara::workbook
