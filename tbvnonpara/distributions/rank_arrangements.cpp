#include "tbvnonpara/distributions/rank_arrangements.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara {

namespace {

using GroupScores = std::vector<Score>;

/// What an arrangement counts for.
constexpr double stepsOfOne = 10;

/// What some of the scores give each group, and how many arrangements do.
using WaysOfSums = std::map<GroupScores, double>;

/// Deals scores one after the other; of groups of one size that are still empty only the first begins, for
/// all.
template <typename Visit>
class Dealer {
 public:
    Dealer(const RankDeal& deal, GroupScores left, Visit visit)
        : m_Deal(deal), m_Left(std::move(left)), m_Sums(m_Left.size()), m_Visit(visit) {}

    /// Calls visit(left, sums, ways) when the scores from `first` to before `end` have been dealt.
    void deal(std::size_t first, std::size_t end) {
        m_End = end;
        place(first, 1);
    }

 private:
    [[nodiscard]] bool isEmpty(std::size_t group) const { return m_Left[group] == m_Deal.sizes[group]; }

    void place(std::size_t dealt, double ways) {
        if (dealt == m_End) {
            m_Visit(m_Left, m_Sums, ways);
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

    const RankDeal& m_Deal;
    GroupScores m_Left;
    GroupScores m_Sums;
    Visit m_Visit;
    std::size_t m_End = 0;
};

/// Arrangements of the upper scores, each of which meets all of the lower ones that leave it room.
class Meeting {
 public:
    explicit Meeting(const RankDeal& deal)
        : m_Deal(deal), m_Count(stepsOfArrangements(deal)), m_Sums(deal.sizes.size()) {}

    void begin(const WaysOfSums& lower) { m_Lower = &lower; }

    void add(const GroupScores& sums, double ways) {
        constexpr std::size_t together = 2048;  // stay in the cache
        Score part = 0;
        for (std::size_t g = 0; g < sums.size(); ++g) {
            const Score sum = m_Deal.unit * sums[g];
            m_Sums[g].push_back(sum);
            part += sum * sum * m_Deal.weights[g];
        }
        m_Parts.push_back(part);
        m_Ways.push_back(ways);
        if (m_Ways.size() == together) {
            end();
        }
    }

    void end() {
        for (const auto& [sums, ways] : *m_Lower) {
            meet(sums, ways);
            m_Count.add(stepsOfOne * static_cast<double>(m_Ways.size()));
        }
        std::ranges::for_each(m_Sums, &GroupScores::clear);
        m_Parts.clear();
        m_Ways.clear();
    }

    [[nodiscard]] ExactUpperTail tail() const { return {m_AsLarge / m_All, m_Equal / m_All}; }

 private:
    /// (a + b)^2 = a^2 + b^2 + 2 a b, with what the lower scores give, a.
    void meet(const GroupScores& lower, double waysOfLower) {
        m_Statistics = m_Parts;
        Score part = 0;
        for (std::size_t g = 0; g < lower.size(); ++g) {
            part += m_Deal.part(g, lower[g]);
            const Score sum = m_Deal.unit * lower[g] + m_Deal.sizes[g] * m_Deal.smallest;
            const Score factor = 2 * sum * m_Deal.weights[g];
            for (std::size_t i = 0; i < m_Statistics.size(); ++i) {
                m_Statistics[i] += factor * m_Sums[g][i];
            }
        }
        const Score wanted = m_Deal.observed - part;
        double all = 0;
        double asLarge = 0;
        double equal = 0;
        for (std::size_t i = 0; i < m_Statistics.size(); ++i) {
            all += m_Ways[i];
            asLarge += m_Statistics[i] >= wanted ? m_Ways[i] : 0;
            equal += m_Statistics[i] == wanted ? m_Ways[i] : 0;
        }
        m_All += waysOfLower * all;
        m_AsLarge += waysOfLower * asLarge;
        m_Equal += waysOfLower * equal;
    }

    const RankDeal& m_Deal;
    LongCount m_Count;
    const WaysOfSums* m_Lower = nullptr;
    std::vector<GroupScores> m_Sums;  ///< by group
    std::vector<Score> m_Parts;       ///< of the statistic, from the upper scores alone
    std::vector<double> m_Ways;
    std::vector<Score> m_Statistics;
    double m_All = 0;
    double m_AsLarge = 0;
    double m_Equal = 0;
};

}  // namespace

double stepsOfArrangements(const RankDeal& deal) {
    double logarithm = std::lgamma(static_cast<double>(deal.scores.size()) + 1);
    double alike = 0;
    for (std::size_t g = 0; g < deal.sizes.size(); ++g) {
        logarithm -= std::lgamma(static_cast<double>(deal.sizes[g]) + 1);
        alike = g > 0 && deal.sizes[g] == deal.sizes[g - 1] ? alike + 1 : 1;
        logarithm -= std::log(alike);
    }
    return stepsOfOne * std::exp(logarithm);
}

ExactUpperTail tailOfArrangements(const RankDeal& deal) {
    const std::size_t half = deal.scores.size() / 2;
    std::map<GroupScores, WaysOfSums> lower;  // by what the groups still lack
    Dealer(deal, deal.sizes, [&](const GroupScores& left, const GroupScores& sums, double ways) {
        lower[left][sums] += ways;
    }).deal(0, half);
    Meeting meeting(deal);
    for (const auto& [left, waysOfLower] : lower) {
        meeting.begin(waysOfLower);
        Dealer(deal, left, [&](const GroupScores&, const GroupScores& sums, double ways) {
            meeting.add(sums, ways);
        }).deal(half, deal.scores.size());
        meeting.end();
    }
    return meeting.tail();
}

}  // namespace TBVNonPara
