#pragma once

#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/labelled_column.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

/// The columns of a range of the host's, area by area, each area read in one call. With headers the first row
/// holds the labels, without them a column is called by its letters.
[[nodiscard]] TBVNONPARA_API std::vector<LabelledColumn> columnsIn(const Application& application,
                                                                   const RangeRef& range, bool headers);

}  // namespace TBVNonPara
