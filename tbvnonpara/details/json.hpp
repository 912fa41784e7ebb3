#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/json/figures.hpp"

namespace TBVNonPara {

/// All figures of a test in full under their names, with the sentences and notes of its page.
[[nodiscard]] TBVNONPARA_API statistics::Figure detailFigures(const Details& details);

}  // namespace TBVNonPara
