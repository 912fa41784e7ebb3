#pragma once

#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/labelled_column.hpp"

namespace TBVNonPara::rendering {

/// A label and the cells below it.
using PictureColumn = LabelledColumn;

/// The data of a test as they stand before a report may be put over them.
struct PictureData {
    std::vector<PictureColumn> y;  ///< the columns of YRange
    std::vector<PictureColumn> x;  ///< that of XRange, or none
};

/// @cond
/// The value below which a part of sorted numbers lies, between two of them where need be.
[[nodiscard]] TBVNONPARA_API double quantile(const std::vector<double>& sorted, double part);
/// @endcond

}  // namespace TBVNonPara::rendering
