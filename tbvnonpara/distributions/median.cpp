#include "tbvnonpara/distributions/median.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/common_measure.hpp"

namespace TBVNonPara {

namespace {

/// The chances of 0 ... n heads of n coins that show heads with these odds, from the commonest number on.
std::vector<double> headsOf(std::size_t n, double odds) {
    std::vector<double> chances(n + 1);
    const double share = odds / (1 + odds);
    const std::size_t commonest = std::min(n, static_cast<std::size_t>(static_cast<double>(n + 1) * share));
    chances[commonest] = 1;
    for (std::size_t k = commonest; k < n; ++k) {
        chances[k + 1] = chances[k] * odds * static_cast<double>(n - k) / static_cast<double>(k + 1);
    }
    for (std::size_t k = commonest; k > 0; --k) {
        chances[k - 1] = chances[k] / odds * static_cast<double>(k) / static_cast<double>(n - k + 1);
    }
    const double all = std::accumulate(chances.begin(), chances.end(), 0.0);
    std::ranges::transform(chances, chances.begin(), [all](double chance) { return chance / all; });
    return chances;
}

/// All tables with the observed margins: with a coin for every value, those in which as many fall above. Any
/// coin gives the same part of them; the one with the observed odds keeps the chances from vanishing.
class Tables {
 public:
    Tables(std::vector<std::size_t> sizes, std::size_t above, std::vector<Score> weights, Score observed)
        : m_Sizes(std::move(sizes)), m_Above(above), m_Weights(std::move(weights)), m_Observed(observed) {
        const auto all = static_cast<double>(std::accumulate(m_Sizes.begin(), m_Sizes.end(), std::size_t(0)));
        for (const std::size_t size : m_Sizes) {
            m_Heads.push_back(headsOf(size, static_cast<double>(above) / (all - static_cast<double>(above))));
        }
    }

    std::optional<ExactUpperTail> tail() {
        fill(0, m_Above, 0, 1);
        const double p = m_AsLarge / m_All;
        return p < smallestCounted ? std::nullopt
                                   : std::optional(ExactUpperTail{std::min(p, 1.0), m_Equal / m_All});
    }

 private:
    void fill(std::size_t group, std::size_t left, Score statistic, double chance) {
        const auto withAbove = [&](std::size_t a) {
            return statistic + static_cast<Score>(a * a) * m_Weights[group];
        };
        if (group + 1 == m_Sizes.size()) {
            if (left <= m_Sizes[group]) {
                count(withAbove(left), chance * m_Heads[group][left]);
            }
            return;
        }
        for (std::size_t a = 0; a <= std::min(left, m_Sizes[group]); ++a) {
            fill(group + 1, left - a, withAbove(a), chance * m_Heads[group][a]);
        }
    }

    void count(Score statistic, double chance) {
        m_All += chance;
        m_AsLarge += statistic >= m_Observed ? chance : 0;
        m_Equal += statistic == m_Observed ? chance : 0;
    }

    std::vector<std::size_t> m_Sizes;
    std::size_t m_Above;
    std::vector<Score> m_Weights;
    Score m_Observed;
    std::vector<std::vector<double>> m_Heads;
    double m_All = 0;
    double m_AsLarge = 0;
    double m_Equal = 0;
};

/// The groups' numbers in ascending order of their sizes.
std::vector<std::size_t> smallestFirst(std::span<const std::size_t> sizes) {
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t g) { return sizes[g]; });
    return order;
}

double tablesOf(std::span<const std::size_t> sizes) {
    double tables = 1;
    for (const std::size_t size : sizes) {
        tables *= static_cast<double>(size) + 1;
    }
    return tables / (static_cast<double>(std::ranges::max(sizes)) + 1);
}

}  // namespace

std::optional<ExactUpperTail> medianTail(std::span<const std::size_t> sizes,
                                         std::span<const std::size_t> above, double tables) {
    const auto measure = commonMeasure(sizes, 1);
    if ((sizes.size() > 2 && tablesOf(sizes) > tables) || !measure) {
        return std::nullopt;
    }
    std::vector<std::size_t> inOrder;
    std::vector<Score> weights;
    Score observed = 0;
    for (const std::size_t g : smallestFirst(sizes)) {
        inOrder.push_back(sizes[g]);
        weights.push_back(*measure / static_cast<Score>(sizes[g]));
        observed += static_cast<Score>(above[g] * above[g]) * weights.back();
    }
    return Tables(inOrder, std::accumulate(above.begin(), above.end(), std::size_t(0)), weights, observed)
        .tail();
}

}  // namespace TBVNonPara
