#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace TBVNonPara {

/// The smallest whole number that all sizes divide, in which sums of squares over sizes are whole numbers.
/// None where such a sum would leave 64 bits: `largest` is the largest value that a group's mean may have.
[[nodiscard]] std::optional<std::int64_t> commonMeasure(std::span<const std::size_t> sizes, double largest);

}  // namespace TBVNonPara
