#include "tbvnonpara/statistics/intervals.hpp"

#include <algorithm>
#include <boost/math/distributions/beta.hpp>
#include <boost/math/distributions/binomial.hpp>
#include <cmath>
#include <cstdint>
#include <numeric>

#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

namespace {

/// In doubles throughout: its quantiles are good to more digits than any share has a use for.
using Beta = boost::math::beta_distribution<
    double, boost::math::policies::policy<boost::math::policies::promote_double<false>>>;

}  // namespace

Estimate share(std::size_t successes, std::size_t trials, double confidence) {
    const auto k = static_cast<double>(successes);
    const auto n = static_cast<double>(trials);
    const double tail = (1 - confidence) / 2;
    const double low = successes == 0 ? 0 : boost::math::quantile(Beta(k, n - k + 1), tail);
    const double high =
        successes == trials ? 1 : boost::math::quantile(boost::math::complement(Beta(k + 1, n - k), tail));
    return {k / n, low, high};
}

double fairCoinsAtMost(std::size_t k, std::size_t n) {
    constexpr std::size_t wholeNumbers = 50;  // of as many coins all ways are counted without a rounding
    if (n > wholeNumbers) {
        return boost::math::cdf(boost::math::binomial(static_cast<double>(n), 0.5), static_cast<double>(k));
    }
    std::uint64_t ways = 1;
    std::uint64_t all = 1;
    for (std::uint64_t heads = 1; heads <= k; ++heads) {
        ways = ways * (n - heads + 1) / heads;
        all += ways;
    }
    return std::ldexp(static_cast<double>(all), -static_cast<int>(n));
}

std::size_t coinsFromTheEnd(std::size_t n, double confidence) {
    const double tail = (1 - confidence) / 2;
    std::size_t holds = 0;
    std::size_t fails = n / 2 + 1;
    while (fails - holds > 1) {
        const std::size_t k = std::midpoint(holds, fails);
        (fairCoinsAtMost(k - 1, n) <= tail ? holds : fails) = k;
    }
    return holds;
}

OrderedEstimate medianOf(std::span<const double> ascending, double confidence) {
    const std::size_t n = ascending.size();
    const std::size_t k = coinsFromTheEnd(n, confidence);
    Depth depth{k, 0, 1 - 2 * fairCoinsAtMost(0, n)};
    if (k > 0) {
        depth.attained = 1 - 2 * fairCoinsAtMost(k - 1, n);
    }
    return medianAmong(n, depth, [ascending](std::span<const std::uint64_t> places) {
        std::array<double, 4> values{};
        std::ranges::transform(places, values.begin(), [ascending](std::uint64_t place) {
            return ascending[static_cast<std::size_t>(place)];
        });
        return values;
    });
}

Depth normalDepth(double mean, double deviation, double confidence) {
    const double k = std::floor(mean - normalQuantile(confidence) * deviation);
    const auto level = [=](double depth) { return 1 - 2 * normalTail((mean - depth) / deviation).value; };
    return k > 0 ? Depth{static_cast<std::uint64_t>(k), level(k), level(1)} : Depth{0, 0, level(1)};
}

}  // namespace TBVNonPara::statistics
