#pragma once

#include "tbvnonpara/companion/DataCheck.hpp"
#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The checks of the ranges. Cells are looked at column by column, each from top to bottom, and the first
/// offending one is named. A range without any data cell is refused before its cells are. Several areas are
/// checked one after the other; the number of data rows is that of the first.
[[nodiscard]] TBVNONPARA_API ObjectRef<DataCheck> createDataCheck();

}  // namespace TBVNonPara
