#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "tbvnonpara/ordering/radix_sort.hpp"

namespace TBVNonPara {

constexpr std::uint64_t signBit = std::uint64_t(1) << 63;

/// A whole number that compares with others as the values do, 0 and -0 alike.
[[nodiscard]] inline std::uint64_t keyOf(double value) noexcept {
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);  // -0 + 0 is 0
    return (bits & signBit) != 0 ? ~bits : bits | signBit;
}

[[nodiscard]] inline double valueOf(std::uint64_t key) noexcept {
    return std::bit_cast<double>((key & signBit) != 0 ? key & ~signBit : ~key);
}

/// The keys of values as what they exceed the smallest by, of which the bits from `low` on up to `high`
/// differ.
struct KeySpan {
    std::uint64_t smallest = 0;
    BitRange bits;

    explicit KeySpan(std::span<const double> values, std::size_t threads = 1);

    [[nodiscard]] std::uint64_t excess(double value) const noexcept { return keyOf(value) - smallest; }
    /// A value's place among the keys that differ, for spans of few keys.
    [[nodiscard]] std::size_t place(double value) const noexcept {
        return static_cast<std::size_t>(excess(value) >> bits.low);
    }
    [[nodiscard]] int width() const noexcept { return bits.high - bits.low; }
};

}  // namespace TBVNonPara
