#pragma once

#include <string>

#include "tbvnonpara/analysis/details.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara::rendering {

/// A cell as texts show it.
[[nodiscard]] std::string shownDetail(const DetailCell& cell);

/// What there is to say about a test in full.
[[nodiscard]] DetailPage detailPage(const analysis::Details& details);

}  // namespace TBVNonPara::rendering
