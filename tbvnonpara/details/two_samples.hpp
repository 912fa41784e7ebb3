#pragma once

#include "tbvnonpara/details/page.hpp"

namespace TBVNonPara {

/// The pages of the tests of two samples, of pairs and of signs.
[[nodiscard]] DetailPage pageOf(const statistics::MannWhitney& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Wilcoxon& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Spearman& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Sign& test, const Details& details);

}  // namespace TBVNonPara
