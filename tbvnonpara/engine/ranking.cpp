#include "tbvnonpara/engine/ranking.hpp"

#include <algorithm>
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

/// Takes the zeros out of ranks in which they were counted.
void leaveOutZeros(std::span<const double> values, std::span<double> ranks) {
    const auto zeros = static_cast<double>(std::ranges::count(values, 0.0));
    std::ranges::transform(values, ranks, ranks.begin(), [zeros](double value, double rank) {
        return value == 0 ? 0 : value > 0 ? rank - zeros : rank;
    });
}

}  // namespace

RankedValues RankValues(std::span<const double> values, const ArrayUtility& utility) {
    RankedValues ranked{utility.OrderOf(values), {}};
    ranked.tieCounts = sizesOf(ranked.order.ties);
    return ranked;
}

TieCounts RankValues(std::span<const double> values, std::span<double> ranks, const ArrayUtility& utility,
                     bool excludeZeros) {
    RankedValues ranked = RankValues(values, utility);
    ranked.visit([ranks](std::uint32_t position, double rank) { ranks[position] = rank; });
    if (excludeZeros) {
        leaveOutZeros(values, ranks);
        std::erase_if(ranked.order.ties,
                      [&](const Tie& tie) { return values[ranked.order.positions[tie.first]] == 0; });
        return sizesOf(ranked.order.ties);
    }
    return std::move(ranked.tieCounts);
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
