#include "tbvnonpara/statistics/spearman.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

#include "tbvnonpara/distributions/rank_correlation.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Sums of products of ranks about their mean; halves of whole numbers, so that they are exact for a million
/// pairs.
double coProduct(std::span<const double> x, std::span<const double> y) {
    const double mean = (static_cast<double>(x.size()) + 1) / 2;
    return std::transform_reduce(x.begin(), x.end(), y.begin(), 0.0, std::plus<>(),
                                 [mean](double a, double b) { return (a - mean) * (b - mean); });
}

Estimate rhoWithInterval(double rho, double n, double confidence) {
    if (n < 4 || std::abs(rho) >= 1) {
        return {rho, {}, {}};
    }
    const double reach = normalQuantile(confidence) * std::sqrt((1 + rho * rho / 2) / (n - 3));
    return {rho, std::tanh(std::atanh(rho) - reach), std::tanh(std::atanh(rho) + reach)};
}

/// AS 89 in the three directions, where its tail may be trusted.
std::optional<Tails> seriesTails(const Midranks& x, const Midranks& y) {
    constexpr double seriesEnds = 1290;
    constexpr double trusted = 0.0005;
    const auto n = static_cast<double>(x.ranks.size());
    if (x.ties.groups + y.ties.groups > 0 || n >= seriesEnds) {
        return std::nullopt;
    }
    const double D =
        std::transform_reduce(x.ranks.begin(), x.ranks.end(), y.ranks.begin(), 0.0, std::plus<>(),
                              [](double a, double b) { return (a - b) * (a - b); });
    const double largest = n * (n * n - 1) / 3;
    const double greater = rankCorrelationSeries(n, largest - D);  // as large a D, by symmetry
    const double less = rankCorrelationSeries(n, D);
    const double smaller = std::min(greater, less);
    if (smaller < trusted) {
        return std::nullopt;
    }
    return Tails{probability(std::min(2 * smaller, 1.0)), probability(greater), probability(less), {}};
}

}  // namespace

Spearman spearman(std::span<const double> first, std::span<const double> second, const Options& options) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    const Pairs pairs = pairsOf(first, second, options);
    if (pairs.first.size() < 2) {
        throw std::invalid_argument("A correlation needs at least two pairs of values.");
    }
    const Midranks x = midranks(pairs.first);
    const Midranks y = midranks(pairs.second);
    Spearman test;
    test.n = pairs.first.size();
    test.missing = pairs.missing;
    test.ties = {x.ties, y.ties};
    const double spread = std::sqrt(coProduct(x.ranks, x.ranks) * coProduct(y.ranks, y.ranks));
    if (!(spread > 0)) {
        return test;
    }
    const auto n = static_cast<double>(test.n);
    const double rho = std::clamp(coProduct(x.ranks, y.ranks) / spread, -1.0, 1.0);
    test.rho = rhoWithInterval(rho, n, options.confidence);
    if (const auto counted = rankCorrelationTails(x.ranks, y.ranks, options.exactSteps)) {
        test.exact = tails(*counted);
    } else {
        test.series = seriesTails(x, y);
        test.sampled = sampledRankProducts(x.ranks, y.ranks, options);
    }
    if (n > 2 && std::abs(rho) < 1) {
        test.t = studentTails(rho * std::sqrt((n - 2) / ((1 - rho) * (1 + rho))), n - 2);
    }
    return test;
}

std::string_view methodOf(const Spearman& test) {
    return test.exact ? "exact" : test.series ? "series" : test.t ? "t" : "none";
}

}  // namespace TBVNonPara::statistics
