#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara {

/// A cell as texts show it.
[[nodiscard]] TBVNONPARA_API std::string shownDetail(const DetailCell& cell);

/// What there is to say about a test in full.
[[nodiscard]] TBVNONPARA_API DetailPage detailPage(const Details& details);

}  // namespace TBVNonPara
