#pragma once

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/file_cells.hpp"

namespace TBVNonPara::workbook {

/// Reads all sheets of an .ods file's content. Repeated empty rows and cells cost nothing.
[[nodiscard]] FileContents readOdsContent(const Parts& parts, const std::string& part);

}  // namespace TBVNonPara::workbook
