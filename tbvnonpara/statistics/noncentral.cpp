#include "tbvnonpara/statistics/noncentral.hpp"

#include <boost/math/distributions/non_central_chi_squared.hpp>
#include <boost/math/distributions/non_central_f.hpp>
#include <boost/math/tools/toms748_solve.hpp>
#include <cmath>
#include <cstdint>
#include <exception>
#include <numeric>

namespace TBVNonPara::statistics {

namespace {

/// The limits are wanted to ten digits: doubles have more than that.
using InDoubles = boost::math::policies::policy<boost::math::policies::promote_double<false>>;

/// The noncentrality at which the chance of a smaller statistic is `chance`; it falls with the noncentrality.
/// Found between two by Alefeld, Potra and Shi's method (1995), which takes a dozen chances instead of the
/// fifty of halving.
template <typename ChanceOfLess>
double noncentralityOf(double chance, ChanceOfLess chanceOfLess) {
    const auto excess = [&](double noncentrality) { return chanceOfLess(noncentrality) - chance; };
    double below = 0;
    double atBelow = excess(below);
    if (atBelow <= 0) {
        return 0;
    }
    double above = 1;
    double atAbove = excess(above);
    while (atAbove > 0) {
        below = above;
        atBelow = atAbove;
        above *= 2;
        atAbove = excess(above);
    }
    const auto isClose = [](double low, double high) { return high - low <= 1e-14 * high; };
    std::uintmax_t most = 200;
    const auto [low, high] =
        boost::math::tools::toms748_solve(excess, below, above, atBelow, atAbove, isClose, most);
    return std::midpoint(low, high);
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
        return boost::math::cdf(
            boost::math::non_central_chi_squared_distribution<double, InDoubles>(df, lambda), value);
    });
}

std::optional<Noncentralities> noncentralF(double value, double df1, double df2, double confidence) {
    return between(confidence, [=](double lambda) {
        return boost::math::cdf(boost::math::non_central_f_distribution<double, InDoubles>(df1, df2, lambda),
                                value);
    });
}

}  // namespace TBVNonPara::statistics
