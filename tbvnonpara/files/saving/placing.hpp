#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

enum class TargetSheet {
    Named,  ///< the sheet of the same name
    Added,  ///< a new one behind the others
};

/// A report, or its details, in memory and where they go: the same cells of a sheet in the file.
struct Placement {
    const Sheet* sheet = nullptr;
    Rectangle area;
    TargetSheet target = TargetSheet::Added;
    bool overwrite = false;
};

/// A copy of an .xlsx or .xlsm workbook with a report in it, and what else is placed. Only the part of the
/// sheet and the part of the styles change, for a sheet that is added also the workbook's list of its parts;
/// where formulas are overwritten, the order of calculation. All other parts are the same bytes, compressed
/// as they were.
///
/// Raises the host's error when something is in the way: merged cells, a table, a pivot table, an array
/// formula, a signature; cells that hold something unless overwriting is allowed.
[[nodiscard]] TBVNONPARA_API std::string placeIntoCopy(std::string workbook, const std::string& fileName,
                                                       const std::vector<Placement>& placements);

}  // namespace TBVNonPara::workbook
