#include "tbvnonpara/statistics/noncentral.hpp"

#include <boost/math/distributions/non_central_chi_squared.hpp>
#include <boost/math/distributions/non_central_f.hpp>
#include <cmath>
#include <exception>
#include <numeric>

namespace TBVNonPara::statistics {

namespace {

/// The noncentrality at which the chance of a smaller statistic is `chance`; it falls with the noncentrality.
template <typename ChanceOfLess>
double noncentralityOf(double chance, ChanceOfLess chanceOfLess) {
    constexpr int halvings = 200;
    if (chanceOfLess(0) <= chance) {
        return 0;
    }
    double below = 0;
    double above = 1;
    while (chanceOfLess(above) > chance) {
        below = above;
        above *= 2;
    }
    for (int i = 0; i < halvings && above - below > 1e-14 * above; ++i) {
        const double middle = std::midpoint(below, above);
        (chanceOfLess(middle) > chance ? below : above) = middle;
    }
    return std::midpoint(below, above);
}

template <typename ChanceOfLess>
std::optional<Noncentralities> between(double confidence, ChanceOfLess chanceOfLess) try {
    const double tail = (1 - confidence) / 2;
    return Noncentralities{noncentralityOf(1 - tail, chanceOfLess), noncentralityOf(tail, chanceOfLess)};
} catch (const std::exception&) {
    return std::nullopt;  // the distribution could not be evaluated: no interval is better than a wrong one
}

}  // namespace

std::optional<Noncentralities> noncentralChiSquare(double value, double df, double confidence) {
    return between(confidence, [=](double lambda) {
        return boost::math::cdf(boost::math::non_central_chi_squared(df, lambda), value);
    });
}

std::optional<Noncentralities> noncentralF(double value, double df1, double df2, double confidence) {
    return between(confidence, [=](double lambda) {
        return boost::math::cdf(boost::math::non_central_f(df1, df2, lambda), value);
    });
}

}  // namespace TBVNonPara::statistics
