#include "tbvnonpara/distributions/page.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

#include "tbvnonpara/distributions/folding.hpp"

namespace TBVNonPara {

namespace {

/// The ranks of a block, twice as large, in ascending order.
using Doubled = std::vector<std::size_t>;

/// The sums that an order of the ranks can give, and their chances.
struct BlockSums {
    std::size_t lowest = 0;
    std::vector<double> chances;  ///< of `lowest`, and of every whole number above it
};

Doubled doubledRanks(std::span<const double> ranks) {
    Doubled scores(ranks.size());
    std::ranges::transform(ranks, scores.begin(),
                           [](double rank) { return static_cast<std::size_t>(std::llround(2 * rank)); });
    std::ranges::sort(scores);
    return scores;
}

std::size_t largestSum(const Doubled& ascending) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        sum += (i + 1) * ascending[i];
    }
    return sum;
}

std::size_t lowestSum(const Doubled& ascending) {
    return largestSum(Doubled(ascending.rbegin(), ascending.rend()));
}

/// Which of the ranks stand in the first places is a set of bits; the chances of their sums from 0 on.
BlockSums sumsOfBlock(const Doubled& ranks) {
    const std::size_t sets = std::size_t(1) << ranks.size();
    std::vector<std::vector<double>> chances(sets);
    chances.front() = {1};
    for (std::size_t set = 0; set + 1 < sets; ++set) {
        const auto placed = static_cast<std::size_t>(std::popcount(set));
        const auto left = static_cast<double>(ranks.size() - placed);
        for (std::size_t rank = 0; rank < ranks.size(); ++rank) {
            if ((set >> rank & 1U) != 0) {
                continue;
            }
            const std::size_t rise = (placed + 1) * ranks[rank];
            std::vector<double>& next = chances[set | std::size_t(1) << rank];
            next.resize(std::max(next.size(), chances[set].size() + rise));
            for (std::size_t sum = 0; sum < chances[set].size(); ++sum) {
                next[sum + rise] += chances[set][sum] / left;
            }
        }
        chances[set] = {};
    }
    const std::size_t lowest = lowestSum(ranks);
    const std::vector<double>& all = chances.back();
    return {lowest, {all.begin() + static_cast<std::ptrdiff_t>(lowest), all.end()}};
}

}  // namespace

std::optional<ExactTails> pageTails(std::span<const double> ranks, std::size_t treatments, Score observed,
                                    double steps) {
    std::map<Doubled, std::size_t> kinds;
    for (std::size_t first = 0; first < ranks.size(); first += treatments) {
        kinds[doubledRanks(ranks.subspan(first, treatments))] += 1;
    }
    const auto k = static_cast<double>(treatments);
    const double reach = 2 * (k * k * k - k) / 6 + 1;
    const double blocks = static_cast<double>(ranks.size()) / k;
    constexpr std::size_t mostTreatments = 20;
    if (treatments > mostTreatments ||
        static_cast<double>(kinds.size()) * std::exp2(k) * k * reach + blocks * blocks * reach * reach / 2 >
            steps) {
        return std::nullopt;
    }
    std::size_t lowest = 0;
    Score mean = 0;
    std::vector<double> chances = {1};
    for (const auto& [kind, count] : kinds) {
        const BlockSums sums = sumsOfBlock(kind);
        for (std::size_t block = 0; block < count; ++block) {
            chances = folded(sums.chances, chances);
        }
        lowest += count * sums.lowest;
        mean += static_cast<Score>(count * (lowestSum(kind) + largestSum(kind)));
    }
    return tailsOfSums(chances, static_cast<Score>(lowest), observed, mean, 2);
}

}  // namespace TBVNonPara
