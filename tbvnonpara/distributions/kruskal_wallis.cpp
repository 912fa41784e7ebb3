#include "tbvnonpara/distributions/kruskal_wallis.hpp"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/common_measure.hpp"
#include "tbvnonpara/distributions/long_count.hpp"
#include "tbvnonpara/distributions/rank_arrangements.hpp"
#include "tbvnonpara/distributions/rank_deal.hpp"

namespace TBVNonPara {

namespace {

/// The chances of how many scores each group but the last holds and what they sum to. The sums that go with
/// the same counts lie together, each from the smallest that its count can have: a score more moves them as a
/// block.
class StateTable {
 public:
    explicit StateTable(const RankDeal& deal) : m_Deal(deal) {
        for (std::size_t g = 0; g + 1 < deal.sizes.size(); ++g) {
            m_SumStrides.push_back(m_Block);
            m_CountStrides.push_back(m_Counts);
            m_Block *= static_cast<std::size_t>(deal.sums(deal.sizes[g]));
            m_Counts *= static_cast<std::size_t>(deal.sizes[g]) + 1;
        }
        m_Chances.resize(m_Block * m_Counts);
        m_Moves.resize(m_SumStrides.size());
    }

    /// How many additions it would take.
    static double steps(const RankDeal& deal) {
        double states = static_cast<double>(deal.scores.size()) * static_cast<double>(deal.sizes.size());
        for (std::size_t g = 0; g + 1 < deal.sizes.size(); ++g) {
            states *=
                (static_cast<double>(deal.sizes[g]) + 1) * static_cast<double>(deal.sums(deal.sizes[g]));
        }
        return states;
    }

    ExactUpperTail tail() {
        m_Chances.front() = 1;
        const double needed = steps(m_Deal);
        LongCount count(needed);
        for (std::size_t dealt = 0; dealt < m_Deal.scores.size(); ++dealt) {
            // From the fullest counts on, so that those a block comes from have not had this score yet.
            for (std::size_t counts = m_Counts; counts-- > 0;) {
                deal(counts, dealt);
            }
            count.add(needed / static_cast<double>(m_Deal.scores.size()));
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
            if (inLast == m_Deal.sizes.back() + 1) {
                std::fill_n(block, m_Block, 0.0);
            }
            return;  // nothing has stood here yet, or stands here any more
        }
        const auto left = static_cast<double>(m_Deal.scores.size() - dealt);
        const double toLast = static_cast<double>(m_Deal.sizes.back() - inLast + 1) / left;
        for (std::size_t g = 0; g < m_SumStrides.size(); ++g) {
            const Score count = heldBy(g, counts);
            m_Moves[g] = count > 0 ? moveTo(g, counts, dealt, static_cast<std::size_t>(count), left) : Move();
        }
        // Piece by piece, so that it stays in the cache for all groups.
        constexpr std::size_t piece = 1024;
        for (std::size_t first = 0; first < m_Block; first += piece) {
            const std::size_t end = std::min(first + piece, m_Block);
            std::transform(block + first, block + end, block + first,
                           [toLast](double chance) { return chance * toLast; });
            for (const Move& move : m_Moves) {
                move.add(block, first, end);
            }
        }
    }

    /// The block in which a group holds one less, its sums `shift` further on.
    struct Move {
        const double* before = nullptr;
        std::size_t shift = std::numeric_limits<std::size_t>::max();
        double chance = 0;

        void add(double* block, std::size_t first, std::size_t end) const {
            for (std::size_t i = std::max(first, shift); i < end; ++i) {
                block[i] += chance * before[i - shift];
            }
        }
    };

    [[nodiscard]] Move moveTo(std::size_t group, std::size_t counts, std::size_t dealt, std::size_t count,
                              double left) const {
        const auto more = static_cast<std::size_t>(m_Deal.scores[dealt] - m_Deal.scores[count - 1]);
        return {m_Chances.data() + (counts - m_CountStrides[group]) * m_Block, more * m_SumStrides[group],
                static_cast<double>(m_Deal.sizes[group] - static_cast<Score>(count) + 1) / left};
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

    const RankDeal& m_Deal;
    std::size_t m_Block = 1;   ///< how many sums of all groups there are
    std::size_t m_Counts = 1;  ///< how many counts of all groups there are
    std::vector<std::size_t> m_SumStrides;
    std::vector<std::size_t> m_CountStrides;
    std::vector<double> m_Chances;
    std::vector<Move> m_Moves;  ///< by group
};

}  // namespace

std::optional<ExactUpperTail> kruskalWallisTail(std::span<const double> ranks,
                                                std::span<const std::size_t> sizes,
                                                std::span<const double> rankSums, double steps) {
    const auto measure = commonMeasure(sizes, 2 * static_cast<double>(ranks.size()));
    if (!measure) {
        return std::nullopt;
    }
    const RankDeal deal(ranks, sizes, rankSums, *measure);
    const double byState = StateTable::steps(deal);
    const double oneByOne = stepsOfArrangements(deal);
    if (std::min(byState, oneByOne) > steps) {
        return std::nullopt;
    }
    return oneByOne <= byState ? tailOfArrangements(deal) : StateTable(deal).tail();
}

}  // namespace TBVNonPara
