#include "tbvnonpara/core/double_double.hpp"

#include <array>
#include <cmath>

namespace TBVNonPara {

namespace {

/// A number as the sum of two of 26 bits each (Veltkamp).
DoubleDouble halves(double number) noexcept {
    constexpr double splitter = 134217729;  // 2^27 + 1
    const double scaled = splitter * number;
    const double high = scaled - (scaled - number);
    return {high, number - high};
}

/// ln((c + d) / (c - d)) for d / c below 1/100, by the series 2 (z + z^3/3 + z^5/5 + ...) of Gregory.
/// All but the first term are small enough for doubles.
DoubleDouble logarithmOfQuotient(double d, double c) noexcept {
    const DoubleDouble z = DoubleDouble(d) / c;
    const double z2 = z.high * z.high;
    const double series =
        z2 * (1.0 / 3 + z2 * (1.0 / 5 + z2 * (1.0 / 7 + z2 * (1.0 / 9 + z2 * (1.0 / 11 + z2 / 13)))));
    return (z + DoubleDouble(z.high * series)) * 2;
}

constexpr DoubleDouble logarithmOfTwo(0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56);
constexpr int steps = 64;

/// ln(1 + i / 64) for i = 0..64.
std::array<DoubleDouble, steps + 1> logarithmsOfSteps() noexcept {
    std::array<DoubleDouble, steps + 1> logarithms{};
    for (std::size_t i = 1; i <= steps; ++i) {
        logarithms[i] = logarithms[i - 1] + logarithmOfQuotient(1, 2.0 * static_cast<double>(i + steps) - 1);
    }
    return logarithms;
}

}  // namespace

// By Dekker's method, not by a fused multiply-add, which some runtimes only imitate.
DoubleDouble exactProduct(double a, double b) noexcept {
    const double product = a * b;
    const DoubleDouble x = halves(a);
    const DoubleDouble y = halves(b);
    return {product, ((x.high * y.high - product) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

DoubleDouble operator*(DoubleDouble a, double b) noexcept {
    const DoubleDouble product = exactProduct(a.high, b);
    return exactSumOfOrdered(product.high, product.low + a.low * b);
}

DoubleDouble operator/(DoubleDouble a, double b) noexcept {
    const double quotient = a.high / b;
    const DoubleDouble remainder = a - exactProduct(quotient, b);
    return exactSumOfOrdered(quotient, toDouble(remainder) / b);
}

DoubleDouble operator*(DoubleDouble a, DoubleDouble b) noexcept {
    const DoubleDouble product = exactProduct(a.high, b.high);
    return exactSumOfOrdered(product.high, product.low + (a.high * b.low + a.low * b.high));
}

DoubleDouble operator/(DoubleDouble a, DoubleDouble b) noexcept {
    const double first = a.high / b.high;
    const DoubleDouble rest = a - b * first;
    const double second = rest.high / b.high;
    const DoubleDouble more = rest - b * second;
    return exactSumOfOrdered(first, second) + DoubleDouble(more.high / b.high);
}

DoubleDouble logarithm(Long number) {
    static const std::array<DoubleDouble, steps + 1> ofSteps = logarithmsOfSteps();
    int exponent = 0;
    // number = 2^exponent x fraction, fraction within 1/128 of the step it is compared with.
    const double fraction = 2 * std::frexp(toDouble(number), &exponent);
    exponent -= 1;
    const auto nearest = static_cast<std::size_t>(std::lround((fraction - 1) * steps));
    const double step = 1 + static_cast<double>(nearest) / steps;
    return logarithmOfTwo * exponent + ofSteps[nearest] +
           logarithmOfQuotient(fraction - step, fraction + step);
}

double exponential(DoubleDouble power) noexcept {
    return std::exp(power.high) * (1 + power.low);
}

}  // namespace TBVNonPara
