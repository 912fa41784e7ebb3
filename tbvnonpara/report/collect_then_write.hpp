#pragma once

#include <algorithm>

#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// A list as a column of cells.
[[nodiscard]] inline ValueGrid asColumn(const Array<CellValue>& values) {
    ValueGrid column(Long(values.elements().size()), 1);
    std::ranges::copy(values.elements(), column.column(1).begin());
    return column;
}

/// Has cells collected by `fill` and then written by `writeFilled`. A fault while collecting leaves after the
/// cells that precede it have been written, as if they had been written one by one.
void collectThenWrite(const auto& fill, const auto& writeFilled) {
    try {
        fill();
    } catch (...) {
        writeFilled();
        throw;
    }
    writeFilled();
}

}  // namespace TBVNonPara
