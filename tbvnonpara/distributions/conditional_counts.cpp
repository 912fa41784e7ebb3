#include "tbvnonpara/distributions/conditional_counts.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara {

namespace {

/// Ranks as the smallest whole numbers that stand in the same distances: doubled, less the smallest, divided
/// by what all have in common.
struct Scores {
    std::vector<Score> values;
    Score smallest = 0;
    Score unit = 1;

    explicit Scores(std::span<const double> ranks, bool fromZero) : values(ranks.size()) {
        std::ranges::transform(ranks, values.begin(), [](double rank) { return std::llround(2 * rank); });
        smallest = fromZero || values.empty() ? 0 : values.front();
        Score common = 0;
        for (Score& value : values) {
            common = std::gcd(common, value -= smallest);
        }
        unit = std::max(common, Score(1));
        for (Score& value : values) {
            value /= unit;
        }
    }

    /// A sum of `count` ranks in the scores' measure.
    [[nodiscard]] Score sum(double rankSum, std::size_t count) const {
        return (std::llround(2 * rankSum) - static_cast<Score>(count) * smallest) / unit;
    }
};

/// The chances of the sums of samples that are drawn from scores that ascend, for each size up to `largest`.
class Urn {
 public:
    Urn(std::span<const Score> scores, std::size_t largest) : m_Lowest(largest + 1), m_Highest(largest + 1) {
        std::partial_sum(scores.begin(), scores.begin() + static_cast<std::ptrdiff_t>(largest),
                         m_Lowest.begin() + 1);
        std::partial_sum(scores.rbegin(), scores.rbegin() + static_cast<std::ptrdiff_t>(largest),
                         m_Highest.begin() + 1);
        for (std::size_t size = 0; size <= largest; ++size) {
            m_Chances.emplace_back(static_cast<std::size_t>(m_Highest[size] - m_Lowest[size]) + 1);
        }
        m_Chances.front().front() = 1;
        const auto ofScore = static_cast<double>(
            std::transform_reduce(m_Chances.begin(), m_Chances.end(), std::size_t(0), std::plus<>(),
                                  [](const std::vector<double>& chances) { return chances.size(); }));
        LongCount count(ofScore * static_cast<double>(scores.size()));
        for (std::size_t drawn = 0; drawn < scores.size(); ++drawn) {
            add(scores[drawn], drawn, largest);
            count.add(ofScore);
        }
    }

    [[nodiscard]] std::span<const double> chances(std::size_t size) const { return m_Chances[size]; }
    [[nodiscard]] Score lowest(std::size_t size) const { return m_Lowest[size]; }

 private:
    /// Another score after `before` others: a sample of a size leaves it out, or holds it and is one smaller
    /// without it.
    void add(Score score, std::size_t before, std::size_t largest) {
        const auto all = static_cast<double>(before + 1);
        for (std::size_t size = std::min(largest, before + 1); size > 0; --size) {
            std::vector<double>& with = m_Chances[size];
            const std::vector<double>& without = m_Chances[size - 1];
            const double leftOut = (all - static_cast<double>(size)) / all;
            const double taken = static_cast<double>(size) / all;
            const Score shift = m_Lowest[size - 1] + score - m_Lowest[size];
            if (leftOut != 1) {
                std::ranges::transform(with, with.begin(),
                                       [leftOut](double chance) { return chance * leftOut; });
            }
            const std::size_t common = std::min(
                without.size(), with.size() - std::min(with.size(), static_cast<std::size_t>(shift)));
            double* const target = with.data() + shift;
            for (std::size_t i = 0; i < common; ++i) {
                target[i] += taken * without[i];
            }
        }
    }

    std::vector<Score> m_Lowest;   ///< sums of the smallest scores
    std::vector<Score> m_Highest;  ///< and of the largest, by size
    std::vector<std::vector<double>> m_Chances;
};

/// How many additions an urn would take.
double stepsOfUrn(const Scores& scores, std::size_t size) {
    const auto m = static_cast<std::ptrdiff_t>(size);
    const Score lowest = std::accumulate(scores.values.begin(), scores.values.begin() + m, Score(0));
    const Score highest = std::accumulate(scores.values.rbegin(), scores.values.rbegin() + m, Score(0));
    return static_cast<double>(scores.values.size()) * static_cast<double>(size) *
           static_cast<double>(highest - lowest + 1);
}

}  // namespace

std::optional<ExactTails> rankSumTails(std::span<const double> ranks, std::size_t size, double rankSum,
                                       double steps) {
    const Scores scores(ranks, false);
    const std::size_t n = ranks.size();
    const std::size_t smaller = std::min(size, n - size);
    if (stepsOfUrn(scores, smaller) > steps) {
        return std::nullopt;
    }
    const Score total = std::accumulate(scores.values.begin(), scores.values.end(), Score(0));
    const Score observed = scores.sum(rankSum, size);
    const Urn urn(scores.values, smaller);
    // The rest of the ranks is the other sample: what is a large sum of the one is a small sum of the other.
    const bool counted = smaller == size;
    std::optional<ExactTails> tails =
        tailsOfSums(urn.chances(smaller), urn.lowest(smaller), counted ? observed : total - observed,
                    static_cast<Score>(smaller) * total, static_cast<Score>(n));
    if (tails && !counted) {
        std::swap(tails->greater, tails->less);
    }
    return tails;
}

std::vector<double> signedRankChances(std::span<const std::int64_t> ranks) {
    std::vector<double> chances(
        static_cast<std::size_t>(std::accumulate(ranks.begin(), ranks.end(), Score(0))) + 1);
    chances.front() = 1;
    std::size_t reached = 0;
    LongCount count(static_cast<double>(ranks.size()) * static_cast<double>(chances.size()) / 2);
    for (const Score rank : ranks) {
        const auto shift = static_cast<std::size_t>(rank);
        reached += shift;
        // From above, so that what is read has not had this rank yet.
        for (std::size_t sum = reached; sum >= shift && sum > 0; --sum) {
            chances[sum] = (chances[sum] + chances[sum - shift]) / 2;
        }
        std::for_each_n(chances.begin(), shift, [](double& chance) { chance /= 2; });
        count.add(static_cast<double>(reached));
    }
    return chances;
}

std::optional<ExactTails> signedRankTails(std::span<const double> ranks, double positiveSum, double steps) {
    const Scores scores(ranks, true);
    const Score total = std::accumulate(scores.values.begin(), scores.values.end(), Score(0));
    if (static_cast<double>(ranks.size()) * static_cast<double>(total) > steps) {
        return std::nullopt;
    }
    return tailsOfSums(signedRankChances(scores.values), 0, scores.sum(positiveSum, 0), total, 2);
}

}  // namespace TBVNonPara
