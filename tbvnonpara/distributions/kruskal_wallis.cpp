#include "tbvnonpara/distributions/kruskal_wallis.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/common_measure.hpp"

namespace TBVNonPara {

namespace {

/// Ranks as whole numbers from 0 on, and how the observed statistic is compared: sum of (2 R_g)^2 measure /
/// n_g.
struct Deal {
    std::vector<Score>
        scores;  ///< ascending, from 0: doubled ranks less the smallest, over what all have in common
    Score smallest = 0;
    Score unit = 1;
    std::vector<Score> sizes;  ///< the largest group last
    std::vector<Score> weights;
    Score observed = 0;

    Deal(std::span<const double> ranks, std::span<const std::size_t> groups, std::span<const double> rankSums,
         Score measure) {
        takeScores(ranks);
        std::vector<std::size_t> order(groups.size());
        std::iota(order.begin(), order.end(), std::size_t(0));
        std::ranges::stable_sort(order, {}, [&](std::size_t g) { return groups[g]; });
        for (const std::size_t g : order) {
            sizes.push_back(static_cast<Score>(groups[g]));
            weights.push_back(measure / sizes.back());
            const Score sum = std::llround(2 * rankSums[g]);
            observed += sum * sum * weights.back();
        }
    }

    /// What a group's sum of scores adds to the statistic.
    [[nodiscard]] Score part(std::size_t group, Score sum) const {
        const Score doubled = unit * sum + sizes[group] * smallest;
        return doubled * doubled * weights[group];
    }

    [[nodiscard]] Score total() const { return std::accumulate(scores.begin(), scores.end(), Score(0)); }

    /// The smallest sum of as many scores.
    [[nodiscard]] Score lowest(Score count) const {
        return std::accumulate(scores.begin(), scores.begin() + static_cast<std::ptrdiff_t>(count), Score(0));
    }

    /// How many sums as many scores can have.
    [[nodiscard]] Score sums(Score count) const {
        return std::accumulate(scores.rbegin(), scores.rbegin() + static_cast<std::ptrdiff_t>(count),
                               Score(0)) -
               lowest(count) + 1;
    }

 private:
    void takeScores(std::span<const double> ranks) {
        scores.resize(ranks.size());
        std::ranges::transform(ranks, scores.begin(), [](double rank) { return std::llround(2 * rank); });
        smallest = scores.front();
        Score common = 0;
        for (Score& score : scores) {
            common = std::gcd(common, score -= smallest);
        }
        unit = std::max(common, Score(1));
        for (Score& score : scores) {
            score /= unit;
        }
    }
};

/// The chances of how many scores each group but the last holds and what they sum to. The sums that go with
/// the same counts lie together, each from the smallest that its count can have: a score more moves them as a
/// block.
class StateTable {
 public:
    explicit StateTable(const Deal& deal) : m_Deal(deal) {
        for (std::size_t g = 0; g + 1 < deal.sizes.size(); ++g) {
            m_SumStrides.push_back(m_Block);
            m_CountStrides.push_back(m_Counts);
            m_Block *= static_cast<std::size_t>(deal.sums(deal.sizes[g]));
            m_Counts *= static_cast<std::size_t>(deal.sizes[g]) + 1;
        }
        m_Chances.resize(m_Block * m_Counts);
    }

    /// How many additions it would take.
    static double steps(const Deal& deal) {
        double states = static_cast<double>(deal.scores.size()) * static_cast<double>(deal.sizes.size());
        for (std::size_t g = 0; g + 1 < deal.sizes.size(); ++g) {
            states *=
                (static_cast<double>(deal.sizes[g]) + 1) * static_cast<double>(deal.sums(deal.sizes[g]));
        }
        return states;
    }

    ExactUpperTail tail() {
        m_Chances.front() = 1;
        for (std::size_t dealt = 0; dealt < m_Deal.scores.size(); ++dealt) {
            // From the fullest counts on, so that those a block comes from have not had this score yet.
            for (std::size_t counts = m_Counts; counts-- > 0;) {
                deal(counts, dealt);
            }
        }
        const double* const full = m_Chances.data() + (m_Counts - 1) * m_Block;
        ExactUpperTail result{0, 0};
        for (std::size_t sums = 0; sums < m_Block; ++sums) {
            const Score statistic = statisticOf(sums);
            result.p += statistic >= m_Deal.observed ? full[sums] : 0;
            result.point += statistic == m_Deal.observed ? full[sums] : 0;
        }
        result.p = std::min(result.p, 1.0);
        return result;
    }

 private:
    [[nodiscard]] Score heldBy(std::size_t group, std::size_t counts) const {
        const auto kinds = static_cast<std::size_t>(m_Deal.sizes[group]) + 1;
        return static_cast<Score>(counts / m_CountStrides[group] % kinds);
    }

    /// Gives the next score to each group with the chance of what it still lacks.
    void deal(std::size_t counts, std::size_t dealt) {
        Score held = 0;
        for (std::size_t g = 0; g < m_SumStrides.size(); ++g) {
            held += heldBy(g, counts);
        }
        const Score inLast = static_cast<Score>(dealt) + 1 - held;
        double* const block = m_Chances.data() + counts * m_Block;
        if (inLast < 0 || inLast > m_Deal.sizes.back()) {
            std::fill_n(block, m_Block, 0.0);
            return;
        }
        const auto left = static_cast<double>(m_Deal.scores.size() - dealt);
        const double toLast = static_cast<double>(m_Deal.sizes.back() - inLast + 1) / left;
        std::transform(block, block + m_Block, block, [toLast](double chance) { return chance * toLast; });
        for (std::size_t g = 0; g < m_SumStrides.size(); ++g) {
            if (const Score count = heldBy(g, counts); count > 0) {
                take(g, counts, m_Deal.scores[dealt] - m_Deal.scores[static_cast<std::size_t>(count) - 1],
                     static_cast<double>(m_Deal.sizes[g] - count + 1) / left);
            }
        }
    }

    /// Adds the block in which the group holds one less, its sums `more` further on.
    void take(std::size_t group, std::size_t counts, Score more, double chance) {
        const std::size_t shift = std::min(static_cast<std::size_t>(more) * m_SumStrides[group], m_Block);
        double* const block = m_Chances.data() + counts * m_Block + shift;
        const double* const before = m_Chances.data() + (counts - m_CountStrides[group]) * m_Block;
        std::transform(before, before + (m_Block - shift), block, block,
                       [chance](double from, double to) { return to + chance * from; });
    }

    /// Where every group is full.
    [[nodiscard]] Score statisticOf(std::size_t sums) const {
        Score statistic = 0;
        Score rest = m_Deal.total();
        for (std::size_t g = m_SumStrides.size(); g-- > 0;) {
            const Score sum = static_cast<Score>(sums / m_SumStrides[g]) + m_Deal.lowest(m_Deal.sizes[g]);
            sums %= m_SumStrides[g];
            statistic += m_Deal.part(g, sum);
            rest -= sum;
        }
        return statistic + m_Deal.part(m_SumStrides.size(), rest);
    }

    const Deal& m_Deal;
    std::size_t m_Block = 1;   ///< how many sums of all groups there are
    std::size_t m_Counts = 1;  ///< how many counts of all groups there are
    std::vector<std::size_t> m_SumStrides;
    std::vector<std::size_t> m_CountStrides;
    std::vector<double> m_Chances;
};

/// Every arrangement, one after the other; of groups of one size that are still empty only the first begins,
/// for all.
class Arrangements {
 public:
    explicit Arrangements(const Deal& deal)
        : m_Deal(deal), m_Left(deal.sizes), m_Sums(deal.sizes.size()), m_Rest(deal.scores.size() + 1) {
        std::partial_sum(deal.scores.rbegin(), deal.scores.rend(), m_Rest.rbegin() + 1);
    }

    /// As many additions as it would take: ten for each arrangement.
    static double steps(const Deal& deal) {
        double logarithm = std::lgamma(static_cast<double>(deal.scores.size()) + 1);
        double alike = 0;
        for (std::size_t g = 0; g < deal.sizes.size(); ++g) {
            logarithm -= std::lgamma(static_cast<double>(deal.sizes[g]) + 1);
            alike = g > 0 && deal.sizes[g] == deal.sizes[g - 1] ? alike + 1 : 1;
            logarithm -= std::log(alike);
        }
        return 10 * std::exp(logarithm);
    }

    ExactUpperTail tail() {
        place(0, 1);
        return {m_AsLarge / m_All, m_Equal / m_All};
    }

 private:
    [[nodiscard]] bool isEmpty(std::size_t group) const { return m_Left[group] == m_Deal.sizes[group]; }

    /// All scores from this one on; the arrangements before them stand for `ways`.
    void place(std::size_t dealt, double ways) {
        if (const auto last = std::ranges::find(m_Left, static_cast<Score>(m_Deal.scores.size() - dealt));
            last != m_Left.end()) {
            takeTheRest(static_cast<std::size_t>(last - m_Left.begin()), dealt, ways);
            return;
        }
        for (std::size_t g = 0; g < m_Sums.size(); ++g) {
            std::size_t alike = 1;
            while (isEmpty(g) && g + alike < m_Sums.size() && isEmpty(g + alike) &&
                   m_Left[g] == m_Left[g + alike]) {
                alike += 1;
            }
            if (m_Left[g] > 0) {
                giveTo(g, dealt, ways * static_cast<double>(alike));
            }
            g += alike - 1;
        }
    }

    void giveTo(std::size_t group, std::size_t dealt, double ways) {
        m_Left[group] -= 1;
        m_Sums[group] += m_Deal.scores[dealt];
        place(dealt + 1, ways);
        m_Sums[group] -= m_Deal.scores[dealt];
        m_Left[group] += 1;
    }

    void takeTheRest(std::size_t group, std::size_t dealt, double ways) {
        m_Sums[group] += m_Rest[dealt];
        count(ways);
        m_Sums[group] -= m_Rest[dealt];
    }

    void count(double ways) {
        Score statistic = 0;
        for (std::size_t g = 0; g < m_Sums.size(); ++g) {
            statistic += m_Deal.part(g, m_Sums[g]);
        }
        m_All += ways;
        m_AsLarge += statistic >= m_Deal.observed ? ways : 0;
        m_Equal += statistic == m_Deal.observed ? ways : 0;
    }

    const Deal& m_Deal;
    std::vector<Score> m_Left;
    std::vector<Score> m_Sums;
    std::vector<Score> m_Rest;  ///< the sum of the scores from a place on
    double m_All = 0;
    double m_AsLarge = 0;
    double m_Equal = 0;
};

}  // namespace

std::optional<ExactUpperTail> kruskalWallisTail(std::span<const double> ranks,
                                                std::span<const std::size_t> sizes,
                                                std::span<const double> rankSums, double steps) {
    const auto measure = commonMeasure(sizes, 2 * static_cast<double>(ranks.size()));
    if (!measure) {
        return std::nullopt;
    }
    const Deal deal(ranks, sizes, rankSums, *measure);
    const double byState = StateTable::steps(deal);
    const double oneByOne = Arrangements::steps(deal);
    if (std::min(byState, oneByOne) > steps) {
        return std::nullopt;
    }
    return oneByOne <= byState ? Arrangements(deal).tail() : StateTable(deal).tail();
}

}  // namespace TBVNonPara
