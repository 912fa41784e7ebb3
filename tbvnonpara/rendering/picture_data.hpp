#pragma once

#include <vector>

#include "tbvnonpara/analysis/columns.hpp"
#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::rendering {

/// A label and the cells below it.
using PictureColumn = LabelledColumn;
/// @cond
using analysis::columnsAt;

/// The value below which a part of sorted numbers lies, between two of them where need be.
[[nodiscard]] TBVNONPARA_API double quantile(const std::vector<double>& sorted, double part);
/// @endcond

}  // namespace TBVNonPara::rendering
