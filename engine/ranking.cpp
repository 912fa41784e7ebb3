#include "engine/ranking.hpp"

#include <algorithm>

namespace TBVNonPara {

namespace {

void writeRanks(const AscendingOrder& order, std::span<double> ranks) {
    std::size_t place = 0;
    const auto writeDistinct = [&](std::size_t end) {
        for (; place < end; ++place) {
            ranks[order.positions[place]] = static_cast<double>(place) + 1;
        }
    };
    for (const Tie& tie : order.ties) {
        writeDistinct(tie.first);
        const double rank = static_cast<double>(tie.first) + (static_cast<double>(tie.size) + 1) * 0.5;
        for (; place < tie.first + tie.size; ++place) {
            ranks[order.positions[place]] = rank;
        }
    }
    writeDistinct(order.positions.size());
}

/// Takes the zeros out of ranks in which they were counted.
void leaveOutZeros(std::span<const double> values, std::span<double> ranks) {
    const auto zeros = static_cast<double>(std::ranges::count(values, 0.0));
    std::ranges::transform(values, ranks, ranks.begin(), [zeros](double value, double rank) {
        return value == 0 ? 0 : value > 0 ? rank - zeros : rank;
    });
}

}  // namespace

TieCounts RankValues(std::span<const double> values, std::span<double> ranks, const ArrayUtility& utility,
                     bool excludeZeros) {
    const AscendingOrder order = utility.OrderOf(values);
    writeRanks(order, ranks);
    if (excludeZeros) {
        leaveOutZeros(values, ranks);
    }
    TieCounts tieCounts;
    for (const Tie& tie : order.ties) {
        if (!excludeZeros || values[order.positions[tie.first]] != 0) {
            tieCounts.append(tie.size);
        }
    }
    return tieCounts.allocated() ? tieCounts : TieCounts{0};
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
