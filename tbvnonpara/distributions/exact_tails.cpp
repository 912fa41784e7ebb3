#include "tbvnonpara/distributions/exact_tails.hpp"

#include <algorithm>
#include <cstdlib>

namespace TBVNonPara {

std::optional<ExactTails> tailsOfSums(std::span<const double> chances, Score lowest, Score observed,
                                      Score meanTimesParts, Score parts) {
    ExactTails tails{0, 0, 0, 0};
    const Score distance = std::abs(parts * observed - meanTimesParts);
    for (std::size_t i = 0; i < chances.size(); ++i) {
        const Score sum = lowest + static_cast<Score>(i);
        tails.twoTailed += std::abs(parts * sum - meanTimesParts) >= distance ? chances[i] : 0;
        tails.greater += sum >= observed ? chances[i] : 0;
        tails.less += sum <= observed ? chances[i] : 0;
        tails.point += sum == observed ? chances[i] : 0;
    }
    if (std::min(tails.greater, tails.less) < smallestCounted) {
        return std::nullopt;
    }
    return ExactTails{std::min(tails.twoTailed, 1.0), std::min(tails.greater, 1.0), std::min(tails.less, 1.0),
                      tails.point};
}

}  // namespace TBVNonPara
