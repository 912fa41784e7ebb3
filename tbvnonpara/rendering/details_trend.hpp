#pragma once

#include <optional>

#include "tbvnonpara/rendering/details_page.hpp"
#include "tbvnonpara/statistics/trend.hpp"

namespace TBVNonPara::rendering {

/// Adds a sentence and a table on the trend from group to group, where there is one.
void tellTrend(DetailPage& page, const std::optional<statistics::Trend>& trend,
               const analysis::DetailChoices& choices);

}  // namespace TBVNonPara::rendering
