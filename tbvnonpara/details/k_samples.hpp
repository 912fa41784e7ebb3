#pragma once

#include "tbvnonpara/details/page.hpp"

namespace TBVNonPara {

/// The pages of the tests of several groups or categories.
[[nodiscard]] DetailPage pageOf(const statistics::Runs& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Median& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::KruskalWallis& test, const Details& details);
[[nodiscard]] DetailPage pageOf(const statistics::Friedman& test, const Details& details);

}  // namespace TBVNonPara
