#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// Ranks, and what is made of them, as whole numbers.
using Score = std::int64_t;

/// Below, sums of chances begin to lose digits and end at 0: no count is given then, and a formula that has
/// logarithms says more.
inline constexpr double smallestCounted = 1e-280;

/// What a count of all arrangements says of an observed one. `twoTailed` takes those that lie as far from the
/// mean or farther, `point` those that give the same.
struct ExactTails {
    double twoTailed = 1;
    double greater = 1;
    double less = 1;
    double point = 1;
};

/// How often arrangements give a statistic as large as the observed one (`p`), and the very same (`point`).
struct ExactUpperTail {
    double p = 1;
    double point = 1;
};

/// Adds up the chances of sums `lowest`, `lowest` + 1, ...; `meanTimesParts` over `parts` is their mean, so
/// that distances from it compare as whole numbers. None where a tail falls below smallestCounted.
[[nodiscard]] TBVNONPARA_API std::optional<ExactTails> tailsOfSums(std::span<const double> chances,
                                                                   Score lowest, Score observed,
                                                                   Score meanTimesParts, Score parts);

}  // namespace TBVNonPara
