#pragma once

#include <optional>

#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/statistics/trend.hpp"

namespace TBVNonPara {

/// "Values rise from group to group (Kendall's tau-b = 0.42, P = 0.0031, exact).": of a trend with a spread.
[[nodiscard]] std::string trendText(const statistics::Trend& trend, const DetailChoices& choices);

/// Adds a sentence and a table on the trend from group to group, where there is one.
void tellTrend(DetailPage& page, const std::optional<statistics::Trend>& trend, const DetailChoices& choices);

}  // namespace TBVNonPara
