#include "adapters/workbook/normal.hpp"

#include <cmath>

namespace TBVNonPara::workbook {

namespace {

/// A number as the unevaluated sum of two doubles. Rounding z / sqrt(2) or the square of z to one double
/// alone would cost hundreds of units in the last place of the far tail.
struct Pair {
    double high = 0;
    double low = 0;
};

Pair sumOf(double a, double b) {
    const double sum = a + b;
    const double rest = sum - a;
    return {sum, (a - (sum - rest)) + (b - rest)};
}

/// The same where |a| >= |b|.
Pair ordered(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

Pair productOf(double a, double b) {
    const double product = a * b;
    return {product, std::fma(a, b, -product)};
}

Pair operator+(Pair a, Pair b) {
    const Pair high = sumOf(a.high, b.high);
    const Pair low = sumOf(a.low, b.low);
    const Pair sum = ordered(high.high, high.low + low.high);
    return ordered(sum.high, sum.low + low.low);
}

Pair operator*(Pair a, Pair b) {
    const Pair product = productOf(a.high, b.high);
    return ordered(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Pair operator*(Pair a, double b) {
    return a * Pair{b};
}

Pair operator/(Pair a, Pair b) {
    const double first = a.high / b.high;
    const Pair rest = a + b * -first;
    const double second = rest.high / b.high;
    const Pair more = rest + b * -second;
    return ordered(first, second) + Pair{more.high / b.high};
}

/// exp(x) is mantissa * 2^exponent.
struct Scaled {
    Pair mantissa;
    int exponent = 0;
};

/// Taylor's series of x - exponent * ln 2, halved eight times and squared back.
Scaled exponential(Pair x) {
    // The logarithm of 2 in three pieces, the first short enough for exact products with the exponent.
    constexpr double ln2High = 0x1.62e42fef8p-1;
    constexpr double ln2Middle = 0x1.1cf79abc9e3b4p-36;
    constexpr double ln2Low = -0x1.9ff0342542fc3p-90;
    constexpr int halvings = 8;
    constexpr int terms = 10;
    const double exponent = std::nearbyint(x.high / ln2High);
    Pair rest = x + Pair{-exponent * ln2High} + productOf(-exponent, ln2Middle) + Pair{-exponent * ln2Low};
    rest = {std::ldexp(rest.high, -halvings), std::ldexp(rest.low, -halvings)};
    Pair sum{1};
    for (int n = terms; n >= 1; --n) {
        sum = Pair{1} + rest * sum / Pair{static_cast<double>(n)};
    }
    for (int i = 0; i < halvings; ++i) {
        sum = sum * sum;
    }
    return {sum, static_cast<int>(exponent)};
}

/// The density at z.
Scaled density(double z) {
    constexpr Pair oneOverRootTwoPi{0x1.9884533d43651p-2, -0x1.cbc0d30ebfd15p-56};
    Scaled density = exponential(productOf(z, z) * -0.5);
    density.mantissa = density.mantissa * oneOverRootTwoPi;
    return density;
}

/// z + z^3/3 + z^5/(3*5) + ...: times the density it is the probability between 0 and z.
Pair series(double z) {
    const Pair square = productOf(z, z);
    Pair term{z};
    Pair sum = term;
    for (double n = 3; std::abs(term.high) > std::abs(sum.high) * 0x1p-105; n += 2) {
        term = term * square / Pair{n};
        sum = sum + term;
    }
    return sum;
}

/// Laplace's continued fraction 1/(t + 1/(t + 2/(t + ...))): times the density it is the tail beyond t.
Pair continuedFraction(double t) {
    constexpr int depth = 60;
    Pair denominator{t};
    for (int n = depth; n >= 1; --n) {
        denominator = Pair{t} + Pair{static_cast<double>(n)} / denominator;
    }
    return Pair{1} / denominator;
}

double scaled(Pair mantissa, int exponent) {
    return std::ldexp(mantissa.high + mantissa.low, exponent);
}

}  // namespace

double normalLowerTail(double z) {
    constexpr double wherePairsLoseTooMuch = 5;
    constexpr double whereOneIsReached = 9;
    constexpr double whereZeroIsReached = -39;
    if (z > whereOneIsReached) {
        return 1;
    }
    if (z < whereZeroIsReached) {
        return 0;
    }
    const Scaled height = density(z);
    if (std::abs(z) < wherePairsLoseTooMuch) {
        const Pair fromZero = height.mantissa * series(z);
        const Pair scaledDown{std::ldexp(fromZero.high, height.exponent),
                              std::ldexp(fromZero.low, height.exponent)};
        return scaled(Pair{0.5} + scaledDown, 0);
    }
    const Pair tail = height.mantissa * continuedFraction(std::abs(z));
    return z < 0 ? scaled(tail, height.exponent) : 1 - scaled(tail, height.exponent);
}

}  // namespace TBVNonPara::workbook
