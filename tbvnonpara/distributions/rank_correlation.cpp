#include "tbvnonpara/distributions/rank_correlation.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"
#include "tbvnonpara/distributions/normal.hpp"

namespace TBVNonPara {

namespace {

/// Ascending ranks as the smallest whole numbers in the same distances from 0 on.
std::vector<Score> scoresOf(std::span<const double> ranks) {
    std::vector<Score> scores(ranks.size());
    std::ranges::transform(ranks, scores.begin(), [](double rank) { return std::llround(2 * rank); });
    std::ranges::sort(scores);
    const Score smallest = scores.front();
    Score common = 0;
    for (Score& score : scores) {
        common = std::gcd(common, score -= smallest);
    }
    for (Score& score : scores) {
        score /= std::max(common, Score(1));
    }
    return scores;
}

/// The distinct scores, how many there are of each, and what one of each adds to the number of a state.
struct Stock {
    std::vector<Score> scores;
    std::vector<std::size_t> counts;
    std::vector<std::size_t> weights;
    double states = 1;

    explicit Stock(const std::vector<Score>& ascending) {
        for (const Score score : ascending) {
            if (scores.empty() || scores.back() != score) {
                scores.push_back(score);
                counts.push_back(0);
            }
            counts.back() += 1;
        }
        for (const std::size_t count : counts) {
            weights.push_back(static_cast<std::size_t>(states));
            states *= static_cast<double>(count) + 1;
            if (states > 1e9) {
                break;  // never counted
            }
        }
    }

    [[nodiscard]] std::size_t left(std::size_t state, std::size_t kind) const {
        return counts[kind] - state / weights[kind] % (counts[kind] + 1);
    }
};

/// The chances of the sums from `lowest` on.
struct Sums {
    Score lowest = 0;
    std::vector<double> chances;

    /// Makes room for sums from `from` up to `to`.
    void reach(Score from, Score to) {
        if (chances.empty()) {
            lowest = from;
        }
        if (from < lowest) {
            chances.insert(chances.begin(), static_cast<std::size_t>(lowest - from), 0.0);
            lowest = from;
        }
        const auto size = static_cast<std::size_t>(to - lowest) + 1;
        chances.resize(std::max(chances.size(), size));
    }

    void add(const Sums& other, Score shift, double chance) {
        reach(other.lowest + shift, other.lowest + shift + static_cast<Score>(other.chances.size()) - 1);
        double* const target = chances.data() + (other.lowest + shift - lowest);
        for (std::size_t i = 0; i < other.chances.size(); ++i) {
            target[i] += chance * other.chances[i];
        }
    }
};

/// Deals the stock to the scores one by one, each kind with the chance of what is left of it.
Sums sumsOfProducts(const std::vector<Score>& scores, const Stock& stock, LongCount& count) {
    std::map<std::size_t, Sums> level = {{0, {0, {1.0}}}};
    for (std::size_t dealt = 0; dealt < scores.size(); ++dealt) {
        std::map<std::size_t, Sums> next;
        const auto all = static_cast<double>(scores.size() - dealt);
        for (const auto& [state, sums] : level) {
            for (std::size_t kind = 0; kind < stock.scores.size(); ++kind) {
                if (const std::size_t left = stock.left(state, kind); left > 0) {
                    next[state + stock.weights[kind]].add(sums, scores[dealt] * stock.scores[kind],
                                                          static_cast<double>(left) / all);
                    count.add(static_cast<double>(sums.chances.size()));
                }
            }
        }
        level = std::move(next);
    }
    return level.begin()->second;
}

Score productSum(const std::vector<Score>& first, const std::vector<Score>& second) {
    return std::inner_product(first.begin(), first.end(), second.begin(), Score(0));
}

/// The observed sum in the scores' measure: sum (x - a)(y - b) / (units).
Score observedSum(std::span<const double> first, std::span<const double> second) {
    const auto scoresInPlace = [](std::span<const double> ranks) {
        const Score smallest = std::llround(2 * std::ranges::min(ranks));
        Score common = 0;
        std::vector<Score> scores(ranks.size());
        for (std::size_t i = 0; i < ranks.size(); ++i) {
            scores[i] = std::llround(2 * ranks[i]) - smallest;
            common = std::gcd(common, scores[i]);
        }
        std::ranges::transform(scores, scores.begin(),
                               [common](Score score) { return score / std::max(common, Score(1)); });
        return scores;
    };
    return productSum(scoresInPlace(first), scoresInPlace(second));
}

}  // namespace

std::optional<ExactTails> rankCorrelationTails(std::span<const double> first, std::span<const double> second,
                                               double steps) {
    std::vector<Score> x = scoresOf(first);
    std::vector<Score> y = scoresOf(second);
    if (Stock(x).states < Stock(y).states) {
        std::swap(x, y);
    }
    const Stock stock(y);
    const auto n = static_cast<double>(x.size());
    if (stock.states * n > steps) {
        return std::nullopt;  // before sums are formed that long columns would overflow
    }
    const Score highest = productSum(x, y);
    const Score lowest = std::inner_product(x.begin(), x.end(), y.rbegin(), Score(0));
    const double needed = stock.states * n * static_cast<double>(highest - lowest);
    if (needed > steps) {
        return std::nullopt;
    }
    const Score total =
        std::accumulate(x.begin(), x.end(), Score(0)) * std::accumulate(y.begin(), y.end(), Score(0));
    LongCount count(needed);
    const Sums sums = sumsOfProducts(x, stock, count);
    return tailsOfSums(sums.chances, sums.lowest, observedSum(first, second), total,
                       static_cast<Score>(x.size()));
}

double rankCorrelationSeries(double n, double D) {
    const double b = 1 / n;
    const double x = (6 * (D - 1) * b / (n * n - 1) - 1) * std::sqrt(n - 1);
    const double y = x * x;
    const double last = 0.0072 - 0.0831 * b + y * b * (0.0131 - 4.6e-4 * y);
    const double correction =
        x * b *
        (0.2274 + b * (0.2531 + 0.1745 * b) +
         y * (-0.0758 + b * (0.1033 + 0.3932 * b) - y * b * (0.0879 + 0.0151 * b - y * last)));
    return std::clamp(correction / std::exp(y / 2) + normalLowerTail(-x), 0.0, 1.0);
}

}  // namespace TBVNonPara
