#include "tbvnonpara/distributions/friedman.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara {

namespace {

using Sum = Score;

/// What a block adds to the treatments' sums.
struct Order {
    std::vector<Sum> scores;
    bool beginsAlike;  ///< as the order before it, but for the last two
};

/// Equal scores give fewer orders, each more likely.
std::vector<Order> ordersOf(std::vector<Sum> scores) {
    std::ranges::sort(scores);
    std::vector<Order> orders;
    do {
        const bool alike =
            !orders.empty() && std::equal(scores.begin(), scores.end() - 2, orders.back().scores.begin());
        orders.push_back({scores, alike});
    } while (std::ranges::next_permutation(scores).found);
    return orders;
}

/// Where the chances of the sums of treatments stand. Sums ascend, and their total is known: all but the last
/// two number a row, in which the last but one is the place. A row has room beyond the sums that can stand
/// there, so that an order of a block moves it as a whole; what has come out of order is put right
/// afterwards.
class Rows {
 public:
    Rows(Sum treatments, Sum total, Sum highestScore)
        : m_Before(highestScore),
          m_After((highestScore + 1) / 2),
          m_Largest(total / 3 + highestScore),
          m_Smaller(static_cast<std::size_t>(treatments) - 2) {
        std::vector<std::size_t> ways(static_cast<std::size_t>(m_Largest) + 2, 1);
        ways.front() = 0;
        for (std::vector<std::size_t>& smaller : m_Smaller) {
            smaller.assign(1, 0);
            std::partial_sum(ways.begin() + 1, ways.end(), std::back_inserter(smaller));
            ways = smaller;
        }
        forEach(m_Largest, [&](const std::vector<Sum>& sums, std::size_t) {
            const Sum first = lowest(sums) - m_Before;
            const Sum end = highest(sums, total) + m_After + 1;
            m_Starts.push_back(m_Size - first);
            m_Size += std::max(end - first, Sum(0));
        });
    }

    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(m_Size); }

    /// The range of the last sum but one.
    [[nodiscard]] static Sum lowest(const std::vector<Sum>& sums) { return sums.empty() ? 0 : sums.back(); }
    [[nodiscard]] static Sum highest(const std::vector<Sum>& sums, Sum total) {
        const Sum left = total - std::accumulate(sums.begin(), sums.end(), Sum(0));
        return left < 0 ? -1 : left / 2;
    }

    [[nodiscard]] Sum before() const { return m_Before; }
    [[nodiscard]] Sum after() const { return m_After; }

    /// The number of the row, of all ascending sums in ascending order of the largest, then of the second
    /// and so on.
    [[nodiscard]] std::size_t row(const std::vector<Sum>& ascending) const {
        std::size_t number = 0;
        for (std::size_t j = 0; j < m_Smaller.size(); ++j) {
            number += m_Smaller[j][static_cast<std::size_t>(ascending[j])];
        }
        return number;
    }

    [[nodiscard]] std::size_t place(std::size_t row, Sum sum) const {
        return static_cast<std::size_t>(m_Starts[row] + sum);
    }

    /// Calls visit(sums, row) for the rows whose sums are `largest` at most.
    template <typename Visit>
    void forEach(Sum largest, Visit visit) const {
        std::vector<Sum> sums(m_Smaller.size());
        for (std::size_t row = 0; lowest(sums) <= std::min(largest, m_Largest); ++row) {
            visit(sums, row);
            if (sums.empty()) {
                return;
            }
            std::size_t risen = 0;
            while (risen + 1 < sums.size() && sums[risen] == sums[risen + 1]) {
                sums[risen++] = 0;
            }
            sums[risen] += 1;
        }
    }

 private:
    Sum m_Before;                                     ///< room in a row
    Sum m_After;                                      ///< and behind
    Sum m_Largest;                                    ///< sum that numbers a row
    std::vector<std::vector<std::size_t>> m_Smaller;  ///< how many ascending sums of j + 1 lie below a number
    std::vector<Sum> m_Starts;                        ///< where a row's sum 0 would stand
    Sum m_Size = 0;
};

/// The chances of the treatments' sums in ascending order, from 0 on.
class SumVectors {
 public:
    SumVectors(Sum treatments, Sum blocks, Sum unit)
        : m_OfBlock(treatments * (treatments - 1) / 2 * unit),
          m_Rows(treatments, blocks * m_OfBlock, (treatments - 1) * unit),
          m_Chances(m_Rows.size()),
          m_Next(m_Rows.size()) {
        m_Chances[m_Rows.place(0, 0)] = 1;
    }

    /// Every order of a block's scores is as likely as another.
    void addBlock(std::vector<Sum> scores) {
        const std::vector<Order> orders = ordersOf(std::move(scores));
        m_Rows.forEach(m_Total / 3, [&](const std::vector<Sum>& sums, std::size_t row) {
            const Sum lowest = Rows::lowest(sums);
            const Sum highest = Rows::highest(sums, m_Total);
            if (highest >= lowest) {
                const std::span chances(&m_Chances[m_Rows.place(row, lowest)],
                                        static_cast<std::size_t>(highest - lowest) + 1);
                if (std::ranges::any_of(chances, [](double chance) { return chance > 0; })) {
                    addOrders(sums, chances, orders);
                    std::ranges::fill(chances, 0.0);
                }
            }
        });
        m_Chances.swap(m_Next);
        m_Total += m_OfBlock;
        putInOrder();
    }

    /// `squares`: of the observed sums.
    [[nodiscard]] std::optional<ExactUpperTail> tail(Sum squares) const {
        ExactUpperTail result{0, 0};
        m_Rows.forEach(m_Total / 3, [&](const std::vector<Sum>& sums, std::size_t row) {
            const Sum left = m_Total - std::accumulate(sums.begin(), sums.end(), Sum(0));
            const Sum ofRow = std::inner_product(sums.begin(), sums.end(), sums.begin(), Sum(0));
            for (Sum sum = Rows::lowest(sums); sum <= Rows::highest(sums, m_Total); ++sum) {
                const double chance = m_Chances[m_Rows.place(row, sum)];
                const Sum all = ofRow + sum * sum + (left - sum) * (left - sum);
                result.p += all >= squares ? chance : 0;
                result.point += all == squares ? chance : 0;
            }
        });
        result.p = std::min(result.p, 1.0);
        return result.p < smallestCounted ? std::nullopt : std::optional(result);
    }

 private:
    void addOrders(const std::vector<Sum>& sums, std::span<const double> chances,
                   const std::vector<Order>& orders) {
        const auto equallyLikely = static_cast<double>(orders.size());
        m_Shares.resize(chances.size());
        std::ranges::transform(chances, m_Shares.begin(),
                               [equallyLikely](double chance) { return chance / equallyLikely; });
        m_Sums.resize(sums.size());
        std::size_t row = 0;
        for (const Order& order : orders) {
            if (!order.beginsAlike) {
                std::ranges::transform(sums, order.scores, m_Sums.begin(), std::plus<>());
                std::ranges::sort(m_Sums);
                row = m_Rows.row(m_Sums);
            }
            double* const next = &m_Next[m_Rows.place(row, Rows::lowest(sums) + order.scores[sums.size()])];
            for (std::size_t i = 0; i < m_Shares.size(); ++i) {
                next[i] += m_Shares[i];
            }
        }
    }

    void putInOrder() {
        m_Rows.forEach(m_Total / 3 + m_Rows.before(), [&](const std::vector<Sum>& sums, std::size_t row) {
            const Sum lowest = Rows::lowest(sums);
            const Sum highest = Rows::highest(sums, m_Total);
            const Sum end = highest + m_Rows.after() + 1;
            putInOrder(sums, row, lowest - m_Rows.before(), std::min(lowest, end));
            putInOrder(sums, row, std::max(lowest, highest + 1), end);
        });
    }

    /// What stands from `first` to before `end`, outside the range of the row's sums.
    void putInOrder(const std::vector<Sum>& sums, std::size_t row, Sum first, Sum end) {
        for (Sum sum = first; sum < end; ++sum) {
            if (double& chance = m_Chances[m_Rows.place(row, sum)]; chance > 0) {
                m_Chances[placeInOrder(sums, sum)] += chance;
                chance = 0;
            }
        }
    }

    [[nodiscard]] std::size_t placeInOrder(const std::vector<Sum>& sums, Sum another) {
        m_Sums = sums;
        m_Sums.push_back(another);
        m_Sums.push_back(m_Total - std::accumulate(m_Sums.begin(), m_Sums.end(), Sum(0)));
        std::ranges::sort(m_Sums);
        return m_Rows.place(m_Rows.row(m_Sums), m_Sums[sums.size()]);
    }

    Sum m_OfBlock;
    Rows m_Rows;
    std::vector<double> m_Chances;
    std::vector<double> m_Next;  ///< 0 between blocks
    std::vector<double> m_Shares;
    std::vector<Sum> m_Sums;
    Sum m_Total = 0;  ///< of all sums
};

/// A block's ranks as whole numbers from 0 on.
std::vector<Sum> scoresOfBlock(std::span<const double> ranks, double unit) {
    std::vector<Sum> scores(ranks.size());
    std::ranges::transform(ranks, scores.begin(),
                           [unit](double rank) { return static_cast<Sum>(std::llround(unit * (rank - 1))); });
    return scores;
}

}  // namespace

std::optional<ExactUpperTail> friedmanTail(std::span<const double> ranks, std::size_t treatments,
                                           double steps) {
    const auto k = static_cast<double>(treatments);
    const double b = static_cast<double>(ranks.size()) / k;
    const bool tied = std::ranges::any_of(ranks, [](double rank) { return rank != std::floor(rank); });
    const double unit = tied ? 2 : 1;
    const double ofBlock = std::pow(b * (k - 1) * unit + 1, k - 1);
    if (b * ofBlock > steps) {
        return std::nullopt;
    }
    LongCount count(b * ofBlock);
    SumVectors vectors(static_cast<Sum>(treatments), static_cast<Sum>(b), static_cast<Sum>(unit));
    std::vector<Sum> observed(treatments);
    for (std::size_t first = 0; first < ranks.size(); first += treatments) {
        std::vector<Sum> scores = scoresOfBlock(ranks.subspan(first, treatments), unit);
        std::ranges::transform(observed, scores, observed.begin(), std::plus<>());
        vectors.addBlock(std::move(scores));
        count.add(ofBlock);
    }
    return vectors.tail(std::inner_product(observed.begin(), observed.end(), observed.begin(), Sum(0)));
}

}  // namespace TBVNonPara
