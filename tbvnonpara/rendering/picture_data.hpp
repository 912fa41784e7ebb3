#pragma once

#include <vector>

#include "tbvnonpara/analysis/columns.hpp"

namespace TBVNonPara::rendering {

using PictureColumn = LabelledColumn;
using analysis::columnsAt;

/// The value below which a part of sorted numbers lies, between two of them where need be.
[[nodiscard]] double quantile(const std::vector<double>& sorted, double part);

}  // namespace TBVNonPara::rendering
