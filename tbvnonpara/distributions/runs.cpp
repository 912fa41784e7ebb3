#include "tbvnonpara/distributions/runs.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace TBVNonPara {

namespace {

/// The natural logarithms of the chances of 0, 1, 2, ... runs.
using LogChances = std::vector<double>;

constexpr double impossible = -std::numeric_limits<double>::infinity();

/// ln of a sum of numbers that are given by their logarithms.
template <typename Wanted>
double logSum(const LogChances& chances, Wanted wanted) {
    double largest = impossible;
    for (std::size_t runs = 0; runs < chances.size(); ++runs) {
        largest = wanted(runs) ? std::max(largest, chances[runs]) : largest;
    }
    if (largest == impossible) {
        return impossible;
    }
    double sum = 0;
    for (std::size_t runs = 0; runs < chances.size(); ++runs) {
        sum += wanted(runs) ? std::exp(chances[runs] - largest) : 0;
    }
    return largest + std::log(sum);
}

/// Stevens (1939): 2 k runs have k of each category, 2 k + 1 one more of either. The numbers of ways are
/// products of ratios from the commonest k on, so that no factorial is formed.
LogChances twoCategories(std::size_t n1, std::size_t n2) {
    const std::size_t most = std::min(n1, n2);
    std::vector<double> ways(most + 1,
                             impossible);    // ln of C(n1 - 1, k - 1) C(n2 - 1, k - 1) over the commonest
    const auto ratio = [&](std::size_t k) {  // of k + 1 to k
        const auto left = [k](std::size_t n) { return static_cast<double>(n - k) / static_cast<double>(k); };
        return std::log(left(n1) * left(n2));
    };
    const std::size_t commonest = std::clamp(n1 * n2 / (n1 + n2), std::size_t(1), most);
    ways[commonest] = 0;
    for (std::size_t k = commonest; k < most; ++k) {
        ways[k + 1] = ways[k] + ratio(k);
    }
    for (std::size_t k = commonest; k > 1; --k) {
        ways[k - 1] = ways[k] - ratio(k - 1);
    }
    LogChances chances(2 * most + 2, impossible);
    for (std::size_t k = 1; k <= most; ++k) {
        const double further = static_cast<double>(n1 - k) + static_cast<double>(n2 - k);
        chances[2 * k] = ways[k] + std::log(2.0);
        chances[2 * k + 1] = further > 0 ? ways[k] + std::log(further / static_cast<double>(k)) : impossible;
    }
    const double all = logSum(chances, [](std::size_t) { return true; });
    std::ranges::transform(chances, chances.begin(), [all](double chance) { return chance - all; });
    return chances;
}

/// Binomial coefficients C(n, 0) ... C(n, most).
std::vector<long double> binomials(std::size_t n, std::size_t most) {
    std::vector<long double> coefficients(most + 1);
    coefficients[0] = 1;
    for (std::size_t k = 1; k <= most && k <= n; ++k) {
        coefficients[k] =
            coefficients[k - 1] * static_cast<long double>(n - k + 1) / static_cast<long double>(k);
    }
    return coefficients;
}

/// Deals another category of n items to orders of m items: in b blocks, of which c split a run and the others
/// stand beside runs, r runs become r + b + c. All numbers are positive.
std::vector<long double> withCategory(const std::vector<long double>& before, std::size_t m, std::size_t n) {
    const std::vector<long double> blocks = binomials(n - 1, n - 1);
    const long double all = binomials(m + n, n)[n];
    std::vector<long double> after(std::min(before.size() + 2 * n, m + n + 1));
    for (std::size_t runs = 1; runs < before.size(); ++runs) {
        if (before[runs] == 0) {
            continue;
        }
        const std::vector<long double> splits = binomials(m - runs, n);
        const std::vector<long double> beside = binomials(runs + 1, n);
        for (std::size_t b = 1; b <= n; ++b) {
            const long double weight = before[runs] * blocks[b - 1] / all;
            for (std::size_t c = b > runs + 1 ? b - runs - 1 : 0; c <= std::min(b, m - runs); ++c) {
                after[runs + b + c] += weight * splits[c] * beside[b - c];
            }
        }
    }
    return after;
}

std::optional<LogChances> manyCategories(std::span<const std::size_t> counts, double steps) {
    std::vector<std::size_t> ascending(counts.begin(), counts.end());
    std::ranges::sort(ascending, std::greater<>());
    double needed = 0;
    std::size_t m = ascending.front();
    for (std::size_t j = 1; j < ascending.size(); ++j) {
        const auto n = static_cast<double>(ascending[j]);
        needed += static_cast<double>(m) * (n * n + 100);  // a row of binomials takes its time, too
        m += ascending[j];
    }
    if (needed > steps) {
        return std::nullopt;
    }
    std::vector<long double> chances = {0, 1};
    m = ascending.front();
    for (std::size_t j = 1; j < ascending.size(); ++j) {
        chances = withCategory(chances, m, ascending[j]);
        m += ascending[j];
    }
    LogChances logarithms(chances.size());
    std::ranges::transform(chances, logarithms.begin(),
                           [](long double chance) { return static_cast<double>(std::log(chance)); });
    return logarithms;
}

}  // namespace

std::optional<RunsTails> runsTails(std::span<const std::size_t> counts, std::size_t runs, double steps) {
    const std::optional<LogChances> chances = counts.size() == 1   ? LogChances{impossible, 0}
                                              : counts.size() == 2 ? twoCategories(counts[0], counts[1])
                                                                   : manyCategories(counts, steps);
    if (!chances) {
        return std::nullopt;
    }
    // N times a number of runs and N times its mean are whole.
    const auto N = static_cast<double>(std::accumulate(counts.begin(), counts.end(), std::size_t(0)));
    const double squares =
        std::transform_reduce(counts.begin(), counts.end(), 0.0, std::plus<>(),
                              [](std::size_t n) { return static_cast<double>(n) * static_cast<double>(n); });
    const auto distance = [&](std::size_t r) {
        return std::abs(N * static_cast<double>(r) - (N * (N + 1) - squares));
    };
    const double two = logSum(*chances, [&](std::size_t r) { return distance(r) >= distance(runs); });
    const double fewer = logSum(*chances, [&](std::size_t r) { return r <= runs; });
    const double more = logSum(*chances, [&](std::size_t r) { return r >= runs; });
    const auto chance = [](double logarithm) { return std::min(std::exp(logarithm), 1.0); };
    const auto common = [](double logarithm) { return std::min(logarithm / std::log(10.0), 0.0); };
    return RunsTails{chance(two), chance(fewer), chance(more), std::exp((*chances)[runs]),
                     common(two), common(fewer), common(more)};
}

}  // namespace TBVNonPara
