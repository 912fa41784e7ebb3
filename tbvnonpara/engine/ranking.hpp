#pragma once

#include <span>

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/core/array.hpp"

namespace TBVNonPara {

/// The sizes of tied groups in ascending order of value. Without a tie the list has one entry, 0.
using TieCounts = Array<Long>;

/// Values ranked where they are, equal ones with the mean of their ranks.
struct RankedValues {
    AscendingOrder order;
    TieCounts tieCounts;

    /// Calls visit(position, rank) for each value in ascending order, positions counted from 0.
    template <typename Visit>
    void visit(Visit visit) const;
};

[[nodiscard]] RankedValues RankValues(std::span<const double> values, const ArrayUtility& utility);

/// Writes the rank of each value into its place in `ranks`. With `excludeZeros` a value of 0 receives 0 and
/// is not counted in the ranks of the others. Returns the tie counts.
TieCounts RankValues(std::span<const double> values, std::span<double> ranks, const ArrayUtility& utility,
                     bool excludeZeros);

/// Rank sums and numbers of rows of groups 1 and 2.
struct RankSums {
    double first = 0;
    double second = 0;
    Long firstCount;
    Long secondCount;

    void add(int group, double rank) {
        first += group == 1 ? rank : 0;
        second += group == 2 ? rank : 0;
        firstCount += group == 1 ? 1 : 0;
        secondCount += group == 2 ? 1 : 0;
    }
};

/// Adds the ranks and the numbers of rows of groups 1 and 2 to `sums`; other groups are skipped. groupOf(i)
/// is the group of row i, counted from 1. The order of the rows is of no account: ranks are halves of whole
/// numbers, their sums exact.
template <typename GroupOf>
void SumRanksByGroup(const Array<double>& ranks, GroupOf groupOf, RankSums& sums) {
    Index i = 0;
    for (const double rank : ranks.elements()) {
        i += 1;
        sums.add(groupOf(i), rank);
    }
}

template <typename GroupOf>
void SumRanksByGroup(const RankedValues& ranked, GroupOf groupOf, RankSums& sums) {
    ranked.visit([&](Index position, double rank) { sums.add(groupOf(position + 1), rank); });
}

template <typename Visit>
void RankedValues::visit(Visit visit) const {
    std::size_t place = 0;
    const auto visitDistinct = [&](std::size_t end) {
        for (; place < end; ++place) {
            visit(order.positions[place], static_cast<double>(place) + 1);
        }
    };
    for (const Tie& tie : order.ties) {
        visitDistinct(tie.first);
        const double rank = static_cast<double>(tie.first) + (static_cast<double>(tie.size) + 1) * 0.5;
        for (; place < tie.first + tie.size; ++place) {
            visit(order.positions[place], rank);
        }
    }
    visitDistinct(order.positions.size());
}

/// The sum of t^3 - t over the tied groups.
[[nodiscard]] double tieSum(const TieCounts& tieCounts) noexcept;

}  // namespace TBVNonPara
