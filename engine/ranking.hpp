#pragma once

#include <span>
#include <vector>

#include "companion/ascending_order.hpp"
#include "core/array.hpp"

namespace TBVNonPara {

/// Calls visit(position, rank) for each value of an order, positions counted from 0; equal values share the
/// mean of their places.
template <typename Visit>
void visitRanks(const AscendingOrder& order, Visit visit) {
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

/// Writes the rank of each value where `ranks` has the place of the value.
void writeRanks(const AscendingOrder& order, std::span<double> ranks);

/// The rank of each value, in entry order.
[[nodiscard]] Array<double> ranksOf(const AscendingOrder& order);

/// The sum of the ranks of the first n values. Exact: ranks are halves of whole numbers.
[[nodiscard]] double sumOfRanks(const AscendingOrder& order, Long n);

/// The sum of t^3 - t over the tied groups.
[[nodiscard]] double tieSum(const std::vector<Tie>& ties) noexcept;

}  // namespace TBVNonPara
