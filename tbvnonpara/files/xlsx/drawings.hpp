#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// A chart, a picture or a shape that lies on a sheet, over the cells there.
struct XlsxDrawing {
    std::string words;  ///< the chart "Chart 1"
    Rectangle cells;    ///< those that it covers, also in part
};

/// What lies on the sheet of a part, in the order of the file; hidden drawings are left out. What is placed
/// by its size alone covers cells by the heights and widths that the sheet's part states; without one a row
/// has 20 and a column 64 pixels.
[[nodiscard]] TBVNONPARA_API std::vector<XlsxDrawing> readXlsxDrawings(const Parts& parts,
                                                                       const std::string& sheet);

/// Those on the sheet of a name that cover cells of a block.
[[nodiscard]] TBVNONPARA_API std::vector<XlsxDrawing> xlsxDrawingsOver(const Parts& parts,
                                                                       std::string_view sheetName,
                                                                       const Rectangle& block);

}  // namespace TBVNonPara::workbook
