#pragma once

#include <algorithm>

namespace TBVNonPara {

/// A probability that roundings, corrections or doubling took out of 0..1, brought back to the nearer end.
[[nodiscard]] constexpr double clampedToOne(double P) noexcept {
    return std::clamp(P, 0.0, 1.0);
}

}  // namespace TBVNonPara
