#pragma once

#include <span>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"

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

/// Values that ascend in this order.
[[nodiscard]] TBVNONPARA_API RankedValues rankValues(AscendingOrder order);

/// Writes the rank of each value into its place in `ranks`. Returns the tie counts.
TBVNONPARA_API TieCounts rankValues(AscendingOrder order, std::span<double> ranks);

/// The same, but a value of 0 receives 0 and is not counted in the ranks of the others.
TBVNONPARA_API TieCounts rankWithoutZeros(std::span<const double> values, AscendingOrder order,
                                          std::span<double> ranks);

/// The sum of some ranks. Their order is of no account: ranks are halves of whole numbers, their sums exact.
[[nodiscard]] TBVNONPARA_API double sumOfRanks(std::span<const double> ranks) noexcept;

/// Rank sums and numbers of rows of groups 1 and 2.
struct RankSums {
    double first = 0;
    double second = 0;
    Long firstCount;
    Long secondCount;

    /// Another row; those of other groups are skipped.
    void add(int group, double rank) {
        first += group == 1 ? rank : 0;
        second += group == 2 ? rank : 0;
        firstCount += group == 1 ? 1 : 0;
        secondCount += group == 2 ? 1 : 0;
    }
};

/// The sums of the ranks and the numbers of rows of groups 1 and 2. groupOf(i) is the group of row i, counted
/// from 1. The order of the rows is of no account: ranks are halves of whole numbers, their sums exact.
template <typename GroupOf>
[[nodiscard]] RankSums sumRanksByGroup(std::span<const double> ranks, GroupOf groupOf) {
    RankSums sums;
    Index i = 0;
    for (const double rank : ranks) {
        i += 1;
        sums.add(groupOf(i), rank);
    }
    return sums;
}

template <typename GroupOf>
[[nodiscard]] RankSums sumRanksByGroup(const RankedValues& ranked, GroupOf groupOf) {
    RankSums sums;
    ranked.visit([&](Index position, double rank) { sums.add(groupOf(position + 1), rank); });
    return sums;
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
[[nodiscard]] TBVNONPARA_API double tieSum(const TieCounts& tieCounts) noexcept;

}  // namespace TBVNonPara
