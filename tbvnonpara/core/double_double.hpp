#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A number as the unevaluated sum of two doubles, about 32 significant digits. Sums are those of Dekker
/// (1971): their error is a few units of the 32nd digit of the larger operand, whatever cancels.
struct DoubleDouble {
    double high = 0;
    double low = 0;

    constexpr DoubleDouble() noexcept = default;
    constexpr DoubleDouble(double number) noexcept : high(number) {}
    constexpr DoubleDouble(double major, double minor) noexcept : high(major), low(minor) {}
};

/// a + b exactly (Knuth).
[[nodiscard]] constexpr DoubleDouble exactSum(double a, double b) noexcept {
    const double sum = a + b;
    const double partOfB = sum - a;
    return {sum, (a - (sum - partOfB)) + (b - partOfB)};
}

/// a + b exactly where |a| >= |b| or a = 0 (Dekker).
[[nodiscard]] constexpr DoubleDouble exactSumOfOrdered(double a, double b) noexcept {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

[[nodiscard]] constexpr DoubleDouble operator+(DoubleDouble a, DoubleDouble b) noexcept {
    const DoubleDouble sum = exactSum(a.high, b.high);
    return exactSumOfOrdered(sum.high, sum.low + (a.low + b.low));
}

[[nodiscard]] constexpr DoubleDouble operator-(DoubleDouble a) noexcept {
    return {-a.high, -a.low};
}

[[nodiscard]] constexpr DoubleDouble operator-(DoubleDouble a, DoubleDouble b) noexcept {
    return a + -b;
}

constexpr DoubleDouble& operator+=(DoubleDouble& a, DoubleDouble b) noexcept {
    return a = a + b;
}

[[nodiscard]] constexpr double toDouble(DoubleDouble number) noexcept {
    return number.high + number.low;
}

/// a x b exactly, where neither the product nor its last digits leave the range of doubles.
[[nodiscard]] TBVNONPARA_API DoubleDouble exactProduct(double a, double b) noexcept;

[[nodiscard]] TBVNONPARA_API DoubleDouble operator*(DoubleDouble a, double b) noexcept;
[[nodiscard]] TBVNONPARA_API DoubleDouble operator*(DoubleDouble a, DoubleDouble b) noexcept;
[[nodiscard]] TBVNONPARA_API DoubleDouble operator/(DoubleDouble a, double b) noexcept;
[[nodiscard]] TBVNONPARA_API DoubleDouble operator/(DoubleDouble a, DoubleDouble b) noexcept;

/// The natural logarithm of a whole number above 0, to 20 decimals.
[[nodiscard]] TBVNONPARA_API DoubleDouble logarithm(Long number);

/// e to the power of a number; the relative error is that of a double.
[[nodiscard]] TBVNONPARA_API double exponential(DoubleDouble power) noexcept;

}  // namespace TBVNonPara
