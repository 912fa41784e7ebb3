#include "tbvnonpara/distributions/jonckheere.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>

#include "tbvnonpara/distributions/dealing_cost.hpp"
#include "tbvnonpara/distributions/factorial_log.hpp"
#include "tbvnonpara/distributions/folding.hpp"
#include "tbvnonpara/distributions/long_count.hpp"
#include "tbvnonpara/distributions/mann_whitney.hpp"

namespace TBVNonPara {

namespace {

using GroupCounts = std::vector<std::size_t>;

GroupCounts groupSizes(const ValueCounts& values) {
    GroupCounts sizes(values.front().size());
    for (const GroupCounts& value : values) {
        std::ranges::transform(sizes, value, sizes.begin(), std::plus<>());
    }
    return sizes;
}

std::size_t sumOf(const GroupCounts& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::size_t(0));
}

/// Over pairs of groups: how many pairs of one element each.
std::size_t pairsAmong(const GroupCounts& counts) {
    std::size_t pairs = 0;
    std::size_t before = 0;
    for (const std::size_t count : counts) {
        pairs += before * count;
        before += count;
    }
    return pairs;
}

/// The chances of U = 0, 1, ... without ties. They are symmetric; differences of tails keep their digits only
/// above the middle.
std::vector<double> chancesOfU(std::size_t n1, std::size_t n2) {
    const std::vector<double> tails =
        mannWhitneyUpperTails(Long(static_cast<Index>(n1)), Long(static_cast<Index>(n2)));
    std::vector<double> chances(n1 * n2 + 1);
    for (std::size_t above = 0; 2 * above <= n1 * n2; ++above) {
        const std::size_t U = n1 * n2 - above;
        chances[U] = tails[U] - (above == 0 ? 0 : tails[U + 1]);
        chances[above] = chances[U];
    }
    return chances;
}

/// Whether the count of U keeps its digits. It takes differences of ever larger numbers of ways: with two
/// samples of 350 all sixteen digits are right, with two of 460 five, and from 515 on the ways leave the
/// range of doubles.
bool canBeCounted(double n1, double n2) {
    constexpr double most = 482;  // ln C(700, 350) is 481.7
    return std::lgamma(n1 + n2 + 1) - std::lgamma(n1 + 1) - std::lgamma(n2 + 1) < most;
}

double stepsOfFolding(const GroupCounts& sizes) {
    double steps = 0;
    double length = 1;
    auto before = static_cast<double>(sizes.front());
    for (std::size_t group = 1; group < sizes.size(); ++group) {
        const auto size = static_cast<double>(sizes[group]);
        const double U = before * size;
        if (!canBeCounted(before, size)) {
            return std::numeric_limits<double>::infinity();
        }
        steps += U * std::min(before, size) + length * (U + 1);
        length += U;
        before += size;
    }
    return steps;
}

/// Without ties the U of each group against all before it do not depend on one another.
std::vector<double> chancesWithoutTies(const GroupCounts& sizes) {
    std::vector<double> chances = {1};
    std::size_t before = sizes.front();
    for (std::size_t group = 1; group < sizes.size(); ++group) {
        chances = folded(chancesOfU(before, sizes[group]), chances);
        before += sizes[group];
    }
    return chances;
}

/// Logarithms of how many ways there are to choose some of several. The ways themselves leave the range of
/// doubles from 1,030 values on.
class LogOfWays {
 public:
    explicit LogOfWays(std::size_t most) {
        for (std::size_t n = 0; n <= most; ++n) {
            m_Factorials.push_back(FactorialLog(Long(static_cast<Index>(n))));
        }
    }

    [[nodiscard]] DoubleDouble choose(std::size_t n, std::size_t k) const {
        return m_Factorials[n] - m_Factorials[k] - m_Factorials[n - k];
    }

 private:
    std::vector<DoubleDouble> m_Factorials;
};

/// Deals the values, ascending, to the groups. What the groups hold is a state; for each one there are the
/// chances of twice the sum.
class Dealing {
 public:
    Dealing(GroupCounts sizes, double steps)
        : m_Sizes(std::move(sizes)),
          m_Count(steps),
          m_Left(sumOf(m_Sizes)),
          m_Ways(m_Left),
          m_Dealt(m_Sizes.size()) {
        m_States[GroupCounts(m_Sizes.size())] = {1};
    }

    void deal(std::size_t equal) {
        m_Next.clear();
        const DoubleDouble all = m_Ways.choose(m_Left, equal);
        for (const auto& [held, chances] : m_States) {
            m_From = &held;
            m_Chances = &chances;
            dealTo(0, equal, -all);
        }
        m_States.swap(m_Next);
        m_Left -= equal;
    }

    [[nodiscard]] const std::vector<double>& chances() const { return m_States.begin()->second; }

 private:
    /// Gives up to `left` of the equal values to this group, the rest to those after it.
    void dealTo(std::size_t group, std::size_t left, DoubleDouble logOfChance) {
        const std::size_t room = m_Sizes[group] - (*m_From)[group];
        if (group + 1 == m_Sizes.size()) {
            if (left <= room) {
                m_Dealt[group] = left;
                add(std::exp(toDouble(logOfChance + m_Ways.choose(room, left))));
            }
            return;
        }
        for (std::size_t count = 0; count <= std::min(left, room); ++count) {
            m_Dealt[group] = count;
            dealTo(group + 1, left - count, logOfChance + m_Ways.choose(room, count));
        }
    }

    void add(double chance) {
        GroupCounts held(m_Sizes.size());
        std::ranges::transform(*m_From, m_Dealt, held.begin(), std::plus<>());
        std::size_t rise = pairsAmong(m_Dealt);
        std::size_t before = 0;
        for (std::size_t group = 0; group < m_Dealt.size(); ++group) {
            rise += 2 * before * m_Dealt[group];
            before += (*m_From)[group];
        }
        std::vector<double>& chances = m_Next[held];
        if (chances.empty()) {
            chances.resize(2 * pairsAmong(held) + 1);
        }
        for (std::size_t i = 0; i < m_Chances->size(); ++i) {
            chances[i + rise] += chance * (*m_Chances)[i];
        }
        m_Count.add(static_cast<double>(m_Chances->size() + m_Sizes.size()));
    }

    GroupCounts m_Sizes;
    LongCount m_Count;
    std::size_t m_Left;
    LogOfWays m_Ways;
    std::map<GroupCounts, std::vector<double>> m_States;
    std::map<GroupCounts, std::vector<double>> m_Next;
    const GroupCounts* m_From = nullptr;
    const std::vector<double>* m_Chances = nullptr;
    GroupCounts m_Dealt;
};

}  // namespace

std::optional<ExactTails> jonckheereTails(const ValueCounts& values, Score observed, double steps) {
    const GroupCounts sizes = groupSizes(values);
    const bool tied = std::ranges::any_of(values, [](const GroupCounts& value) { return sumOf(value) > 1; });
    const auto pairs = static_cast<Score>(pairsAmong(sizes));
    if (!tied) {
        // The sum itself, which is whole, with the mean of half the pairs.
        return stepsOfFolding(sizes) > steps
                   ? std::nullopt
                   : tailsOfSums(chancesWithoutTies(sizes), 0, observed / 2, pairs, 2);
    }
    GroupCounts equal(values.size());
    std::ranges::transform(values, equal.begin(), sumOf);
    if (!canBeDealt(sizes, equal, steps)) {
        return std::nullopt;
    }
    Dealing dealing(sizes, steps);
    for (const std::size_t next : equal) {
        dealing.deal(next);
    }
    return tailsOfSums(dealing.chances(), 0, observed, pairs, 1);
}

}  // namespace TBVNonPara
