#pragma once

#include <string>

#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara {

/// A cell as texts show it.
[[nodiscard]] std::string shownDetail(const DetailCell& cell);

/// What there is to say about a test in full.
[[nodiscard]] DetailPage detailPage(const Details& details);

}  // namespace TBVNonPara
