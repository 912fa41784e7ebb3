#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// Equal values that follow each other in an order, from place `first` (counted from 0) on.
struct Tie {
    std::uint32_t first = 0;
    std::uint32_t size = 0;

    friend bool operator==(const Tie&, const Tie&) = default;
};

/// How values stand when they ascend, while they themselves stay where they are.
struct AscendingOrder {
    /// Where each value is found among those given, counted from 0; equal values keep their order.
    std::vector<std::uint32_t> positions;
    /// Wherever two or more values are equal, in ascending order of value.
    std::vector<Tie> ties;

    friend bool operator==(const AscendingOrder&, const AscendingOrder&) = default;
};

/// The order of the values, found by up to so many threads; on any number it is the same. 0 and -0 are equal.
[[nodiscard]] TBVNONPARA_API AscendingOrder ascendingOrder(std::span<const double> values,
                                                           std::size_t threads = 1);

/// The ties among values that stand at these positions when they ascend.
[[nodiscard]] TBVNONPARA_API std::vector<Tie> tiesOf(std::span<const double> values,
                                                     std::span<const std::uint32_t> positions);

/// Sorts the values themselves; 0 and -0 keep their order.
TBVNONPARA_API void sortAscending(std::span<double> values);

}  // namespace TBVNonPara
