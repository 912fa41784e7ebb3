#pragma once

#include <string>

#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::rendering {

/// The comparisons of several groups as a figure of a page: for each pair the share in which the first is
/// larger with its interval and P, those that differ in another colour. A median test shows the groups'
/// shares above the grand median. Empty for tests without comparisons. Of many, those with the smallest P
/// are drawn.
[[nodiscard]] std::string forestPlot(const Details& details);

}  // namespace TBVNonPara::rendering
