#pragma once

#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/reshaped.hpp"

namespace TBVNonPara::reshaping {

/// The columns of a table as they are, numbers made of what reads as one, without what is missing.
[[nodiscard]] TBVNONPARA_API Reshaped fromWide(std::vector<Column> columns, const Wishes& wishes);

}  // namespace TBVNonPara::reshaping
