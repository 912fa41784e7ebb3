#pragma once

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// n^3.
[[nodiscard]] constexpr double cubed(Long n) noexcept {
    return toDouble(n) * toDouble(n) * toDouble(n);
}

}  // namespace TBVNonPara
