#include "tbvnonpara/distributions/normal.hpp"

#include <cmath>
#include <optional>

#include "tbvnonpara/core/double_double.hpp"
#include "tbvnonpara/distributions/normal_nodes.hpp"

namespace TBVNonPara {

namespace {

// Pairs of doubles throughout: rounding z / sqrt(2) or the square of z to one double alone would cost
// hundreds of units in the last place of the far tail.

/// exp(x) is mantissa * 2^exponent.
struct Scaled {
    DoubleDouble mantissa;
    int exponent = 0;
};

/// Taylor's series of x - exponent * ln 2, halved eight times and squared back.
Scaled scaledExponential(DoubleDouble x) {
    // The logarithm of 2 in three pieces, the first short enough for exact products with the exponent.
    constexpr double ln2High = 0x1.62e42fef8p-1;
    constexpr double ln2Middle = 0x1.1cf79abc9e3b4p-36;
    constexpr double ln2Low = -0x1.9ff0342542fc3p-90;
    constexpr int halvings = 8;
    constexpr int terms = 10;
    const double exponent = std::nearbyint(x.high / ln2High);
    DoubleDouble rest = x + DoubleDouble{-exponent * ln2High} + exactProduct(-exponent, ln2Middle) +
                        DoubleDouble{-exponent * ln2Low};
    rest = {std::ldexp(rest.high, -halvings), std::ldexp(rest.low, -halvings)};
    DoubleDouble sum(1);
    for (int n = terms; n >= 1; --n) {
        sum = DoubleDouble(1) + rest * sum / DoubleDouble(static_cast<double>(n));
    }
    for (int i = 0; i < halvings; ++i) {
        sum = sum * sum;
    }
    return {sum, static_cast<int>(exponent)};
}

/// The density at z.
Scaled density(double z) {
    constexpr DoubleDouble oneOverRootTwoPi{0x1.9884533d43651p-2, -0x1.cbc0d30ebfd15p-56};
    Scaled density = scaledExponential(exactProduct(z, z) * -0.5);
    density.mantissa = density.mantissa * oneOverRootTwoPi;
    return density;
}

/// z + z^3/3 + z^5/(3*5) + ...: times the density it is the probability between 0 and z.
DoubleDouble series(double z) {
    const DoubleDouble square = exactProduct(z, z);
    DoubleDouble term{z};
    DoubleDouble sum = term;
    for (double n = 3; std::abs(term.high) > std::abs(sum.high) * 0x1p-105; n += 2) {
        term = term * square / DoubleDouble{n};
        sum = sum + term;
    }
    return sum;
}

/// Laplace's continued fraction 1/(t + 1/(t + 2/(t + ...))): times the density it is the tail beyond t.
DoubleDouble continuedFraction(double t) {
    constexpr int depth = 60;
    DoubleDouble denominator{t};
    for (int n = depth; n >= 1; --n) {
        denominator = DoubleDouble(t) + DoubleDouble(static_cast<double>(n)) / denominator;
    }
    return DoubleDouble(1) / denominator;
}

double scaled(DoubleDouble mantissa, int exponent) {
    return std::ldexp(mantissa.high + mantissa.low, exponent);
}

/// The upper tail at t, from 0 to 9, by Taylor's expansion about the nearest node: with H for Hermite's
/// polynomials and d for the way from the node, density x d x the sum of H_k (-d)^k / (k + 1)! less than at
/// the node. Only the first terms are large enough to be needed as pairs.
DoubleDouble tailByExpansion(double t) {
    constexpr int pairs = 9;
    constexpr int terms = 22;
    const double nearest = std::nearbyint(t * normalNodesPerUnit);
    const NormalNode& node = normalNodes[static_cast<std::size_t>(nearest)];
    const double d = t - nearest / normalNodesPerUnit;
    const DoubleDouble a = exactProduct(nearest / normalNodesPerUnit, -d);
    const DoubleDouble b = exactProduct(d, -d);
    DoubleDouble before;
    DoubleDouble power{1};  // H_k (-d)^k / k!
    DoubleDouble sum(1);
    int k = 1;
    for (; k < pairs; ++k) {
        const DoubleDouble next = (a * power + b * before) / k;
        before = power;
        power = next;
        sum = sum + power / (k + 1);
    }
    double small = 0;
    for (; k < terms; ++k) {
        const double next = (a.high * power.high + b.high * before.high) / k;
        before.high = power.high;
        power.high = next;
        small += next / (k + 1);
    }
    const DoubleDouble less =
        DoubleDouble{node.densityHigh, node.densityLow} * (sum + DoubleDouble(small)) * -d;
    return DoubleDouble{node.tailHigh, node.tailLow} + less;
}

/// The sum rounded to one double, unless its uncertainty leaves two of them possible.
std::optional<double> rounded(DoubleDouble sum, double uncertainty) {
    const double highest = sum.high + (sum.low + uncertainty);
    return highest == sum.high + (sum.low - uncertainty) ? std::optional(highest) : std::nullopt;
}

/// The lower tail for |z| up to 9, but for one argument in thousands.
std::optional<double> quickLowerTail(double z) {
    const DoubleDouble tail = tailByExpansion(std::abs(z));
    return rounded(z < 0 ? tail : DoubleDouble(1) + tail * -1, tail.high * 0x1p-68);
}

/// The lower tail by series and continued fraction, with more digits than any double needs.
double thoroughLowerTail(double z) {
    constexpr double wherePairsLoseTooMuch = 5;
    const Scaled height = density(z);
    if (std::abs(z) < wherePairsLoseTooMuch) {
        const DoubleDouble fromZero = height.mantissa * series(z);
        const DoubleDouble scaledDown{std::ldexp(fromZero.high, height.exponent),
                                      std::ldexp(fromZero.low, height.exponent)};
        return scaled(DoubleDouble(0.5) + scaledDown, 0);
    }
    const DoubleDouble tail = height.mantissa * continuedFraction(std::abs(z));
    return z < 0 ? scaled(tail, height.exponent) : 1 - scaled(tail, height.exponent);
}

}  // namespace

double normalLowerTail(double z) {
    constexpr double whereOneIsReached = 9;
    constexpr double whereZeroIsReached = -39;
    if (z > whereOneIsReached) {
        return 1;
    }
    if (z < whereZeroIsReached) {
        return 0;
    }
    const std::optional<double> quick = z >= -whereOneIsReached ? quickLowerTail(z) : std::nullopt;
    return quick ? *quick : thoroughLowerTail(z);
}

}  // namespace TBVNonPara
