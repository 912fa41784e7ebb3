#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// What is dealt to groups: ranks as whole numbers from 0 on. The statistic of a deal is the sum of
/// (2 R_g)^2 measure / n_g, a whole number.
struct RankDeal {
    std::vector<Score>
        scores;  ///< ascending, from 0: doubled ranks less the smallest, over what all have in common
    Score smallest = 0;
    Score unit = 1;
    std::vector<Score> sizes;  ///< the largest group last
    std::vector<Score> weights;
    Score observed = 0;

    /// ranks: midranks in ascending order; groups: their sizes, none 0; measure: what all sizes divide.
    RankDeal(std::span<const double> ranks, std::span<const std::size_t> groups,
             std::span<const double> rankSums, Score measure);

    /// What a group's sum of scores adds to the statistic.
    [[nodiscard]] Score part(std::size_t group, Score sum) const {
        const Score doubled = unit * sum + sizes[group] * smallest;
        return doubled * doubled * weights[group];
    }

    [[nodiscard]] Score total() const;

    /// The smallest sum of as many scores.
    [[nodiscard]] Score lowest(Score count) const;

    /// How many sums as many scores can have.
    [[nodiscard]] Score sums(Score count) const;

 private:
    void takeScores(std::span<const double> ranks);
};

}  // namespace TBVNonPara
