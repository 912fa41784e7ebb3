#pragma once

#include <span>
#include <vector>

namespace TBVNonPara::statistics {

/// first - second, each through the text of its single-precision value, as in the report: 5.1 - 5.0 is 0.1.
/// One outside single precision stays as it is. Both have one length.
[[nodiscard]] std::vector<double> cleanedDifferences(std::span<const double> first,
                                                     std::span<const double> second);

}  // namespace TBVNonPara::statistics
