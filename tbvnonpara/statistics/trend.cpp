#include "tbvnonpara/statistics/trend.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>
#include <vector>

#include "tbvnonpara/distributions/jonckheere.hpp"
#include "tbvnonpara/distributions/page.hpp"

namespace TBVNonPara::statistics {

namespace {

/// A value and its group.
struct Dealt {
    double value = 0;
    std::size_t group = 0;
};

std::vector<Dealt> ascendingValues(const Groups& groups) {
    std::vector<Dealt> all;
    all.reserve(groups.total);
    for (std::size_t group = 0; group < groups.values.size(); ++group) {
        for (const double value : groups.values[group]) {
            all.push_back({value, group});
        }
    }
    std::ranges::sort(all, std::less<>(), &Dealt::value);
    return all;
}

/// How many elements groups hold, and how many all groups before one hold, both in steps that grow with the
/// logarithm of the number of groups (Fenwick 1994).
class HeldBefore {
 public:
    explicit HeldBefore(std::size_t groups) : m_Sums(groups + 1) {}

    void add(std::size_t group) {
        for (std::size_t i = group + 1; i < m_Sums.size(); i += i & (~i + 1)) {
            m_Sums[i] += 1;
        }
    }

    [[nodiscard]] double before(std::size_t group) const {
        double sum = 0;
        for (std::size_t i = group; i > 0; i -= i & (~i + 1)) {
            sum += m_Sums[i];
        }
        return sum;
    }

 private:
    std::vector<double> m_Sums;
};

/// Calls visit(first, end) for each run of equal values.
template <typename Visit>
void forEachValue(std::span<const Dealt> all, Visit visit) {
    for (std::size_t first = 0; first < all.size();) {
        std::size_t end = first + 1;
        while (end < all.size() && all[end].value == all[first].value) {
            end += 1;
        }
        visit(all.subspan(first, end - first));
        first = end;
    }
}

/// Twice J.
double doubledJ(std::span<const Dealt> all, std::size_t groups) {
    HeldBefore held(groups);
    double doubled = 0;
    forEachValue(all, [&](std::span<const Dealt> equal) {
        for (const Dealt& element : equal) {
            doubled += 2 * held.before(element.group);
        }
        std::vector<std::size_t> order;
        for (const Dealt& element : equal) {
            order.push_back(element.group);
        }
        std::ranges::sort(order);
        std::size_t ofEarlierGroups = 0;
        for (std::size_t i = 0; i < order.size(); ++i) {
            ofEarlierGroups = i > 0 && order[i] != order[i - 1] ? i : ofEarlierGroups;
            doubled += static_cast<double>(ofEarlierGroups);
        }
        for (const Dealt& element : equal) {
            held.add(element.group);
        }
    });
    return doubled;
}

/// Sums over sizes of groups, or of ties, that variances are made of.
struct SizeSums {
    double pairs = 0;     ///< of n (n - 1)
    double triples = 0;   ///< of n (n - 1) (n - 2)
    double weighted = 0;  ///< of n (n - 1) (2 n + 5)

    void add(double n) {
        pairs += n * (n - 1);
        triples += n * (n - 1) * (n - 2);
        weighted += n * (n - 1) * (2 * n + 5);
    }
};

double varianceOfJ(const SizeSums& groups, const SizeSums& ties, double N) {
    const double all = N * (N - 1) * (2 * N + 5);
    const double both = N > 2 ? groups.triples * ties.triples / (36 * N * (N - 1) * (N - 2)) : 0;
    return (all - groups.weighted - ties.weighted) / 72 + both +
           groups.pairs * ties.pairs / (8 * N * (N - 1));
}

ValueCounts countsOf(std::span<const Dealt> all, std::size_t groups) {
    ValueCounts values;
    forEachValue(all, [&](std::span<const Dealt> equal) {
        std::vector<std::size_t>& counts = values.emplace_back(groups);
        for (const Dealt& element : equal) {
            counts[element.group] += 1;
        }
    });
    return values;
}

/// Beyond, the table of counts alone would be large, and no exact count could be made.
constexpr std::size_t mostCounted = 20000;

}  // namespace

std::optional<Trend> jonckheereTerpstra(const Groups& groups, double exactSteps) {
    const std::vector<Dealt> all = ascendingValues(groups);
    const std::size_t k = groups.values.size();
    const auto N = static_cast<double>(all.size());
    SizeSums sizes;
    for (const std::vector<double>& group : groups.values) {
        sizes.add(static_cast<double>(group.size()));
    }
    SizeSums ties;
    forEachValue(all, [&](std::span<const Dealt> equal) { ties.add(static_cast<double>(equal.size())); });
    const double pairs = N * (N - 1);
    if (!(ties.pairs < pairs)) {
        return std::nullopt;
    }
    const double doubled = doubledJ(all, k);
    Trend trend{"jonckheere-terpstra", doubled / 2, (pairs - sizes.pairs) / 4, 0, {}, {}};
    const double distance = trend.statistic - trend.expected;
    trend.correlation = 4 * distance / std::sqrt((pairs - sizes.pairs) * (pairs - ties.pairs));
    trend.normal =
        normalApproximation(distance, std::sqrt(varianceOfJ(sizes, ties, N)), ties.pairs > 0 ? 0.5 : 1);
    if (all.size() * k <= mostCounted) {
        if (const auto exact = jonckheereTails(countsOf(all, k), static_cast<Score>(doubled), exactSteps)) {
            trend.exact = tails(*exact);
        }
    }
    return trend;
}

std::optional<Trend> pageTrend(std::span<const double> ranks, std::size_t treatments, double exactSteps) {
    const auto k = static_cast<double>(treatments);
    const double b = static_cast<double>(ranks.size()) / k;
    double L = 0;
    double squares = 0;
    bool tied = false;
    for (std::size_t i = 0; i < ranks.size(); ++i) {
        L += static_cast<double>(i % treatments + 1) * ranks[i];
        squares += (ranks[i] - (k + 1) / 2) * (ranks[i] - (k + 1) / 2);
        tied = tied || ranks[i] != std::floor(ranks[i]);
    }
    if (!(squares > 0)) {
        return std::nullopt;
    }
    Trend trend{"page", L, b * k * (k + 1) * (k + 1) / 4, 0, {}, {}};
    const double distance = L - trend.expected;
    trend.correlation = 12 * distance / (b * k * (k * k - 1));
    trend.normal = normalApproximation(distance, std::sqrt(k * (k + 1) / 12 * squares), tied ? 0.5 : 1);
    if (const auto exact = pageTails(ranks, treatments, std::llround(2 * L), exactSteps)) {
        trend.exact = tails(*exact);
    }
    return trend;
}

}  // namespace TBVNonPara::statistics
