#pragma once

#include <bit>
#include <cmath>
#include <compare>
#include <cstdint>

namespace TBVNonPara {

/// A whole number from 0 to 2^128 - 1, for sums that must be exact. As with all unsigned numbers it is the
/// caller who knows that nothing overflows and that no difference is negative.
class WideNumber {
 public:
    constexpr WideNumber() noexcept = default;
    constexpr WideNumber(std::uint64_t low) noexcept : m_Low(low) {}
    constexpr WideNumber(std::uint64_t high, std::uint64_t low) noexcept : m_High(high), m_Low(low) {}

    friend constexpr bool operator==(const WideNumber&, const WideNumber&) noexcept = default;
    friend constexpr auto operator<=>(const WideNumber&, const WideNumber&) noexcept = default;

    friend constexpr WideNumber operator+(const WideNumber& a, const WideNumber& b) noexcept {
        const std::uint64_t low = a.m_Low + b.m_Low;
        return {a.m_High + b.m_High + (low < a.m_Low ? 1U : 0U), low};
    }
    friend constexpr WideNumber operator-(const WideNumber& a, const WideNumber& b) noexcept {
        return {a.m_High - b.m_High - (a.m_Low < b.m_Low ? 1U : 0U), a.m_Low - b.m_Low};
    }
    friend constexpr WideNumber operator*(const WideNumber& a, std::uint64_t b) noexcept {
        const WideNumber low = product(a.m_Low, b);
        return {low.m_High + a.m_High * b, low.m_Low};
    }

    /// All bits of a product.
    [[nodiscard]] static constexpr WideNumber product(std::uint64_t a, std::uint64_t b) noexcept {
        constexpr std::uint64_t half = 0xFFFFFFFF;
        const std::uint64_t low = (a & half) * (b & half);
        const std::uint64_t middle = (a >> 32U) * (b & half) + (low >> 32U);
        const std::uint64_t other = (a & half) * (b >> 32U) + (middle & half);
        return {(a >> 32U) * (b >> 32U) + (middle >> 32U) + (other >> 32U), (other << 32U) | (low & half)};
    }

    /// The nearest double, of two as near the even one.
    [[nodiscard]] double toDouble() const noexcept {
        if (m_High == 0) {
            return static_cast<double>(m_Low);
        }
        // The leading 64 bits decide; of the others it matters only whether there are any.
        const int shift = 64 - std::countl_zero(m_High);
        const std::uint64_t lead = shift == 64 ? m_High : (m_High << (64 - shift)) | (m_Low >> shift);
        const bool more = (shift == 64 ? m_Low : m_Low << (64 - shift)) != 0;
        return std::ldexp(static_cast<double>(lead | (more ? 1U : 0U)), shift);
    }

 private:
    std::uint64_t m_High = 0;
    std::uint64_t m_Low = 0;
};

}  // namespace TBVNonPara
