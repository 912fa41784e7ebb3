#pragma once

#include "tbvnonpara/rendering/details_page.hpp"

namespace TBVNonPara::rendering {

/// The pages of the tests of several groups or categories.
[[nodiscard]] DetailPage pageOf(const statistics::Runs& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Median& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::KruskalWallis& test, const analysis::Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Friedman& test, const analysis::Details& details);

}  // namespace TBVNonPara::rendering
