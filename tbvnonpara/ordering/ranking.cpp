#include "tbvnonpara/ordering/ranking.hpp"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace TBVNonPara {

namespace {

/// The sizes of the ties, one 0 without any.
TieCounts sizesOf(std::span<const Tie> ties) {
    TieCounts tieCounts;
    for (const Tie& tie : ties) {
        tieCounts.append(tie.size);
    }
    return tieCounts.allocated() ? tieCounts : TieCounts{0};
}

void writeRanks(const RankedValues& ranked, std::span<double> ranks) {
    ranked.visit([ranks](std::uint32_t position, double rank) { ranks[position] = rank; });
}

/// Takes the zeros out of ranks in which they were counted.
void leaveOutZeros(std::span<const double> values, std::span<double> ranks) {
    const auto zeros = static_cast<double>(std::ranges::count(values, 0.0));
    std::ranges::transform(values, ranks, ranks.begin(), [zeros](double value, double rank) {
        return value == 0 ? 0 : value > 0 ? rank - zeros : rank;
    });
}

}  // namespace

RankedValues rankValues(AscendingOrder order) {
    RankedValues ranked{std::move(order), {}};
    ranked.tieCounts = sizesOf(ranked.order.ties);
    return ranked;
}

TieCounts rankValues(AscendingOrder order, std::span<double> ranks) {
    RankedValues ranked = rankValues(std::move(order));
    writeRanks(ranked, ranks);
    return std::move(ranked.tieCounts);
}

TieCounts rankWithoutZeros(std::span<const double> values, AscendingOrder order, std::span<double> ranks) {
    RankedValues ranked{std::move(order), {}};
    writeRanks(ranked, ranks);
    leaveOutZeros(values, ranks);
    std::erase_if(ranked.order.ties,
                  [&](const Tie& tie) { return values[ranked.order.positions[tie.first]] == 0; });
    return sizesOf(ranked.order.ties);
}

double sumOfRanks(std::span<const double> ranks) noexcept {
    return std::accumulate(ranks.begin(), ranks.end(), 0.0);
}

double tieSum(const TieCounts& tieCounts) noexcept {
    double sum = 0;
    for (const Long count : tieCounts.elements()) {
        const double t = toDouble(count);
        sum += t * t * t - t;
    }
    return sum;
}

}  // namespace TBVNonPara
