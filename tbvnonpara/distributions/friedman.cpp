#include "tbvnonpara/distributions/friedman.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

namespace TBVNonPara {

namespace {

using Sum = std::uint32_t;

/// The chances of the treatments' sums in ascending order, from 0 on. All but the largest sum number a state:
/// of multisets of so many whole numbers, in ascending order of their largest, then of the second and so on,
/// it is the one at this place.
class SumVectors {
 public:
    SumVectors(std::size_t treatments, Sum largest) : m_Sums(treatments), m_Smaller(treatments - 1) {
        std::vector<std::size_t> ways(largest + 2, 1);  // multisets of j numbers below s
        ways.front() = 0;
        for (std::vector<std::size_t>& smaller : m_Smaller) {
            smaller.assign(1, 0);
            std::partial_sum(ways.begin() + 1, ways.end(), std::back_inserter(smaller));
            ways = smaller;
        }
        m_Chances.resize(m_Smaller.back()[largest + 1]);
        m_Chances.front() = 1;
    }

    /// Every order of a block's scores is as likely as another; equal scores give fewer orders, each more
    /// likely.
    void addBlock(std::vector<Sum> scores) {
        std::ranges::sort(scores);
        std::vector<std::vector<Sum>> orders;
        do {
            orders.push_back(scores);
        } while (std::ranges::next_permutation(scores).found);
        std::vector<double> next(m_Chances.size());
        forEachState([&](const std::vector<Sum>& sums, double chance) {
            for (const std::vector<Sum>& order : orders) {
                next[placeAfter(sums, order)] += chance / static_cast<double>(orders.size());
            }
        });
        m_Chances.swap(next);
        m_Most += orders.front().back();
        m_Total += std::accumulate(scores.begin(), scores.end(), Sum(0));
    }

    /// `squares`: of the observed sums.
    [[nodiscard]] std::optional<ExactUpperTail> tail(std::uint64_t squares) const {
        ExactUpperTail result{0, 0};
        forEachState([&](const std::vector<Sum>& sums, double chance) {
            const std::uint64_t all =
                std::inner_product(sums.begin(), sums.end(), sums.begin(), std::uint64_t(0));
            result.p += all >= squares ? chance : 0;
            result.point += all == squares ? chance : 0;
        });
        result.p = std::min(result.p, 1.0);
        return result.p < smallestCounted ? std::nullopt : std::optional(result);
    }

 private:
    /// Calls `visit` with the ascending sums and the chance of every state that can be.
    template <typename Visit>
    void forEachState(Visit visit) const {
        std::vector<Sum> sums(m_Sums.size());
        const std::size_t last = sums.size() - 1;
        for (std::size_t place = 0; sums[last - 1] <= m_Most; ++place) {
            if (m_Chances[place] > 0) {
                sums[last] = m_Total - std::accumulate(sums.begin(), sums.end() - 1, Sum(0));
                visit(sums, m_Chances[place]);
            }
            std::size_t risen = 0;
            while (risen + 1 < last && sums[risen] == sums[risen + 1]) {
                sums[risen++] = 0;
            }
            sums[risen] += 1;
        }
    }

    [[nodiscard]] std::size_t placeAfter(const std::vector<Sum>& sums, const std::vector<Sum>& order) {
        std::ranges::transform(sums, order, m_Sums.begin(), std::plus<>());
        std::ranges::sort(m_Sums);
        std::size_t place = 0;
        for (std::size_t j = 0; j < m_Smaller.size(); ++j) {
            place += m_Smaller[j][m_Sums[j]];
        }
        return place;
    }

    std::vector<Sum> m_Sums;
    std::vector<std::vector<std::size_t>>
        m_Smaller;  ///< how many multisets of j + 1 numbers lie below a number
    std::vector<double> m_Chances;
    Sum m_Most = 0;   ///< the largest sum that can be
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
    const double largest = b * (k - 1) * unit;
    if (b * std::pow(largest + 1, k - 1) > steps) {
        return std::nullopt;
    }
    SumVectors vectors(treatments, static_cast<Sum>(largest));
    std::vector<std::uint64_t> observed(treatments);
    for (std::size_t first = 0; first < ranks.size(); first += treatments) {
        std::vector<Sum> scores = scoresOfBlock(ranks.subspan(first, treatments), unit);
        std::ranges::transform(observed, scores, observed.begin(), std::plus<>());
        vectors.addBlock(std::move(scores));
    }
    return vectors.tail(
        std::inner_product(observed.begin(), observed.end(), observed.begin(), std::uint64_t(0)));
}

}  // namespace TBVNonPara
