#include "tbvnonpara/statistics/probability.hpp"

#include <algorithm>
#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>
#include <cmath>
#include <limits>

#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Below, doubles begin to lose digits, and the logarithm is taken from a formula of its own.
constexpr double smallestTrusted = 1e-290;

/// A probability with the logarithm that the formula gives where the value has run out.
template <typename NaturalLogarithm>
Probability withLogarithm(double value, NaturalLogarithm naturalLogarithm) {
    if (value >= smallestTrusted) {
        return probability(value);
    }
    return {value, naturalLogarithm() / std::log(10.0)};
}

Probability doubled(const Probability& tail) {
    return {std::min(2 * tail.value, 1.0), std::min(tail.log10 + std::log10(2.0), 0.0)};
}

/// ln of the normal tail above a large z (asymptotic series of Laplace).
double logNormalTail(double z) {
    const double square = 1 / (z * z);
    const double series = 1 - square * (1 - 3 * square * (1 - 5 * square * (1 - 7 * square)));
    return -z * z / 2 - std::log(z) - std::log(2 * std::acos(-1.0)) / 2 + std::log(series);
}

/// A continued fraction 1/(1 + a1/(1 + a2/(1 + ...))) in the form b + a/(b + ...), by the method of Lentz
/// (1976). term(i) gives {a, b} of its i-th step.
template <typename Term>
double continuedFraction(double first, Term term) {
    constexpr double tiny = 1e-300;
    constexpr int most = 100000;
    double value = first == 0 ? tiny : first;
    double c = value;
    double d = 0;
    for (int i = 1; i <= most; ++i) {
        const auto [a, b] = term(i);
        d = b + a * d;
        d = 1 / (d == 0 ? tiny : d);
        c = b + a / c;
        c = c == 0 ? tiny : c;
        const double change = c * d;
        value *= change;
        if (std::abs(change - 1) < std::numeric_limits<double>::epsilon()) {
            break;
        }
    }
    return value;
}

struct Step {
    double a;
    double b;
};

/// ln of the upper incomplete gamma function over the complete one, for x well above a (Legendre).
double logGammaTail(double a, double x) {
    const double fraction = continuedFraction(x + 1 - a, [=](int i) {
        return Step{-i * (i - a), x + 2 * i + 1 - a};
    });
    return a * std::log(x) - x - std::lgamma(a) - std::log(fraction);
}

/// ln of the incomplete beta function over the complete one, for x well below a / (a + b).
double logBetaTail(double a, double b, double x) {
    const double fraction = continuedFraction(1, [=](int i) {
        const double m = i / 2;  // NOLINT(bugprone-integer-division): steps come in pairs
        const double a1 = i % 2 == 0 ? m * (b - m) / ((a + 2 * m - 1) * (a + 2 * m))
                                     : -(a + m) * (a + b + m) / ((a + 2 * m) * (a + 2 * m + 1));
        return Step{a1 * x, 1};
    });
    return a * std::log(x) + b * std::log1p(-x) - std::log(a) - std::log(fraction) -
           (std::lgamma(a) + std::lgamma(b) - std::lgamma(a + b));
}

NormalTails normalTails(double z, double forGreater, double forLess) {
    const Probability greater = normalTail(forGreater);
    const Probability less = normalTail(-forLess);
    const double size = std::abs(z);
    const Probability beyond = size == forGreater ? greater : size == -forLess ? less : normalTail(size);
    return {z, doubled(beyond), greater, less};
}

}  // namespace

Probability probability(double value) {
    return {value, std::log10(value)};
}

Tails tails(const ExactTails& exact) {
    return {probability(exact.twoTailed), probability(exact.greater), probability(exact.less), exact.point};
}

Probability normalTail(double z) {
    return withLogarithm(normalLowerTail(-z), [z] { return logNormalTail(z); });
}

Probability normalTwoTailed(double z) {
    return doubled(normalTail(std::abs(z)));
}

Probability studentTail(double t, double df) {
    const double value = boost::math::cdf(boost::math::complement(boost::math::students_t(df), t));
    return withLogarithm(value, [=] { return std::log(0.5) + logBetaTail(df / 2, 0.5, df / (df + t * t)); });
}

Probability chiSquareTail(double value, double df) {
    if (value <= 0) {
        return {};
    }
    const double tail = boost::math::cdf(boost::math::complement(boost::math::chi_squared(df), value));
    return withLogarithm(tail, [=] { return logGammaTail(df / 2, value / 2); });
}

Probability fTail(double value, double df1, double df2) {
    if (value <= 0) {
        return {};
    }
    const double tail = boost::math::cdf(boost::math::complement(boost::math::fisher_f(df1, df2), value));
    return withLogarithm(tail, [=] { return logBetaTail(df2 / 2, df1 / 2, df2 / (df2 + df1 * value)); });
}

Probability fairCoinsAtLeast(double k, double n) {
    if (k <= 0) {
        return {};
    }
    return withLogarithm(boost::math::ibeta(k, n - k + 1, 0.5),
                         [=] { return logBetaTail(k, n - k + 1, 0.5); });
}

std::optional<NormalApproximation> normalApproximation(double distance, double deviation, double step) {
    if (!(deviation > 0)) {
        return std::nullopt;
    }
    const double half = step / 2;
    const double nearer = std::copysign(std::max(std::abs(distance) - half, 0.0), distance);
    const double z = distance / deviation;
    return NormalApproximation{
        normalTails(z, z, z),
        normalTails(nearer / deviation, (distance - half) / deviation, (distance + half) / deviation)};
}

StudentTails studentTails(double t, double df) {
    return {t, df, doubled(studentTail(std::abs(t), df)), studentTail(t, df), studentTail(-t, df)};
}

double normalQuantile(double confidence) {
    return boost::math::quantile(boost::math::complement(boost::math::normal(), (1 - confidence) / 2));
}

}  // namespace TBVNonPara::statistics
