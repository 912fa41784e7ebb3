#include "tbvnonpara/distributions/runs.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"

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

/// The ways to deal a category to an order: in b blocks, of which c split a run and the others stand beside
/// runs, b + c more runs.
class BlocksOfCategory {
 public:
    explicit BlocksOfCategory(std::size_t n) : m_N(n), m_Blocks(binomials(n - 1, n - 1)) {}

    /// To orders of m items in so many runs.
    void begin(std::size_t m, std::size_t runs) {
        m_Within = m - runs;
        m_Beside = runs + 1;
        m_WaysWithin = binomials(m_Within, m_N);
        m_WaysBeside = binomials(m_Beside, m_N);
        m_Commonest = 0;
    }

    /// The terms rise to the commonest c and fall from there, ever faster: once one is lost in the sum, the
    /// rest is, too. All are positive.
    long double waysOf(std::size_t more) {
        const std::size_t first =
            std::max(more - std::min(more, m_N), (more + 1 - std::min(more, m_Beside)) / 2);
        const std::size_t last = std::min(more / 2, m_Within);
        if (first > last) {
            return 0;
        }
        moveToCommonest(more, first, last);
        constexpr long double lost = 1e-22L;
        long double sum = ways(more, m_Commonest);
        for (std::size_t c = m_Commonest + 1; c <= last; ++c) {
            const long double term = ways(more, c);
            sum += term;
            if (term < lost * sum) {
                break;
            }
        }
        for (std::size_t c = m_Commonest; c > first; --c) {
            const long double term = ways(more, c - 1);
            sum += term;
            if (term < lost * sum) {
                break;
            }
        }
        return sum;
    }

 private:
    [[nodiscard]] long double ways(std::size_t more, std::size_t c) const {
        return m_Blocks[more - c - 1] * m_WaysWithin[c] * m_WaysBeside[more - 2 * c];
    }

    void moveToCommonest(std::size_t more, std::size_t first, std::size_t last) {
        m_Commonest = std::clamp(m_Commonest, first, last);
        while (m_Commonest < last && ways(more, m_Commonest + 1) > ways(more, m_Commonest)) {
            m_Commonest += 1;
        }
        while (m_Commonest > first && ways(more, m_Commonest - 1) > ways(more, m_Commonest)) {
            m_Commonest -= 1;
        }
    }

    std::size_t m_N;
    std::vector<long double> m_Blocks;
    std::size_t m_Within = 0;  ///< places inside runs
    std::size_t m_Beside = 0;
    std::vector<long double> m_WaysWithin;
    std::vector<long double> m_WaysBeside;
    std::size_t m_Commonest = 0;
};

/// To orders of so many runs; a row of binomials takes its time, too.
double stepsToDeal(std::size_t n) {
    return static_cast<double>(n) * static_cast<double>(n) + 100;
}

/// Deals another category of n items to orders of m items.
std::vector<long double> withCategory(const std::vector<long double>& before, std::size_t m, std::size_t n,
                                      LongCount& count) {
    BlocksOfCategory category(n);
    const long double all = binomials(m + n, n)[n];
    std::vector<long double> after(std::min(before.size() + 2 * n, m + n + 1));
    for (std::size_t runs = 1; runs < before.size(); ++runs) {
        if (before[runs] == 0) {
            continue;
        }
        category.begin(m, runs);
        for (std::size_t more = 1; more <= 2 * n && runs + more < after.size(); ++more) {
            after[runs + more] += before[runs] / all * category.waysOf(more);
        }
        count.add(stepsToDeal(n));
    }
    return after;
}

std::optional<LogChances> manyCategories(std::span<const std::size_t> counts, double steps) {
    std::vector<std::size_t> ascending(counts.begin(), counts.end());
    std::ranges::sort(ascending, std::greater<>());
    double needed = 0;
    std::size_t m = ascending.front();
    for (std::size_t j = 1; j < ascending.size(); ++j) {
        needed += static_cast<double>(m) * stepsToDeal(ascending[j]);
        m += ascending[j];
    }
    if (needed > steps) {
        return std::nullopt;
    }
    LongCount count(needed);
    std::vector<long double> chances = {0, 1};
    m = ascending.front();
    for (std::size_t j = 1; j < ascending.size(); ++j) {
        chances = withCategory(chances, m, ascending[j], count);
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
