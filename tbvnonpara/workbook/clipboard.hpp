#pragma once

#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/format_store.hpp"

namespace TBVNonPara::workbook {

/// What was copied last, as it was then: rows and columns count from 1 in both stores.
struct Clipping {
    Index rows = 0;
    Index columns = 0;
    CellStore values;
    FormatStore formats;
};

}  // namespace TBVNonPara::workbook
