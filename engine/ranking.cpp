#include "engine/ranking.hpp"

namespace TBVNonPara {

void writeRanks(const AscendingOrder& order, std::span<double> ranks) {
    visitRanks(order, [ranks](std::uint32_t position, double rank) { ranks[position] = rank; });
}

Array<double> ranksOf(const AscendingOrder& order) {
    Array<double> ranks(Long(order.positions.size()));
    writeRanks(order, ranks.elements());
    return ranks;
}

double sumOfRanks(const AscendingOrder& order, Long n) {
    const auto end = static_cast<std::uint32_t>(n.value());
    double sum = 0;
    visitRanks(order, [&](std::uint32_t position, double rank) { sum += position < end ? rank : 0; });
    return sum;
}

double tieSum(const std::vector<Tie>& ties) noexcept {
    double sum = 0;
    for (const Tie& tie : ties) {
        const auto t = static_cast<double>(tie.size);
        sum += t * t * t - t;
    }
    return sum;
}

}  // namespace TBVNonPara
