#include "tbvnonpara/distributions/rank_deal.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace TBVNonPara {

RankDeal::RankDeal(std::span<const double> ranks, std::span<const std::size_t> groups,
                   std::span<const double> rankSums, Score measure) {
    takeScores(ranks);
    std::vector<std::size_t> order(groups.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t g) { return groups[g]; });
    for (const std::size_t g : order) {
        sizes.push_back(static_cast<Score>(groups[g]));
        weights.push_back(measure / sizes.back());
        const Score sum = std::llround(2 * rankSums[g]);
        observed += sum * sum * weights.back();
    }
}

Score RankDeal::total() const {
    return std::accumulate(scores.begin(), scores.end(), Score(0));
}

Score RankDeal::lowest(Score count) const {
    return std::accumulate(scores.begin(), scores.begin() + static_cast<std::ptrdiff_t>(count), Score(0));
}

Score RankDeal::sums(Score count) const {
    return std::accumulate(scores.rbegin(), scores.rbegin() + static_cast<std::ptrdiff_t>(count), Score(0)) -
           lowest(count) + 1;
}

void RankDeal::takeScores(std::span<const double> ranks) {
    scores.resize(ranks.size());
    std::ranges::transform(ranks, scores.begin(), [](double rank) { return std::llround(2 * rank); });
    smallest = scores.front();
    Score common = 0;
    for (Score& score : scores) {
        common = std::gcd(common, score -= smallest);
    }
    unit = std::max(common, Score(1));
    for (Score& score : scores) {
        score /= unit;
    }
}

}  // namespace TBVNonPara
