#pragma once

#include <optional>

#include "tbvnonpara/analysis/details.hpp"

namespace TBVNonPara::analysis {

/// The probability that counts, in the direction that was asked for; none where there is nothing to test.
[[nodiscard]] std::optional<statistics::Probability> probabilityOf(const Details& details);

}  // namespace TBVNonPara::analysis
