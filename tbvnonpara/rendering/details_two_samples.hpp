#pragma once

#include "tbvnonpara/rendering/details_page.hpp"

namespace TBVNonPara::rendering {

/// The pages of the tests of two samples, of pairs and of signs.
[[nodiscard]] DetailPage pageOf(const statistics::MannWhitney& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Wilcoxon& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Spearman& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Sign& test, const analysis::Details& details);

}  // namespace TBVNonPara::rendering
