#include "tbvnonpara/distributions/factorial_log.hpp"

namespace TBVNonPara {

namespace {

DoubleDouble sumOfLogarithms(Long n) {
    DoubleDouble sum;
    for (Long i = n; i > Long(0); i -= 1) {
        sum += logarithm(i);
    }
    return sum;
}

/// Stirling's series. What it leaves out is below 1e-30 for n above 1,000.
DoubleDouble stirling(Long n) {
    constexpr DoubleDouble halfLogarithmOfTwoPi(0x1.d67f1c864beb5p-1, -0x1.65b5a1b7ff5dfp-55);
    const double x = toDouble(n);
    const double x2 = x * x;
    const double higherTerms =
        (-1.0 / 360 + (1.0 / 1260 + (-1.0 / 1680 + 1.0 / 1188 / x2) / x2) / x2) / (x2 * x);
    return logarithm(n) * (x + 0.5) - x + halfLogarithmOfTwoPi + DoubleDouble(1) / (12 * x) + higherTerms;
}

}  // namespace

DoubleDouble FactorialLog(Long n) try {
    constexpr Long lastSummed = 1000;
    return n <= lastSummed ? sumOfLogarithms(n) : stirling(n);
} catch (...) {
    passOn("clsNonParaBO.FactorialLog");
}

}  // namespace TBVNonPara
