#pragma once

#include <optional>
#include <span>

#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara {

/// The sum of the products of two variables' ranks (midranks, halves of whole numbers) among all pairings of
/// the ranks. Counted over how many of each distinct rank of one variable have been given away, so that ties
/// make it quick. None where states x levels x range of the sums exceeds `steps`, or where a tail falls below
/// smallestCounted. Memory O(states of a level x range).
[[nodiscard]] std::optional<ExactTails> rankCorrelationTails(std::span<const double> first,
                                                             std::span<const double> second, double steps);

/// One-tailed probability that the sum of squared rank differences of n untied pairs is at least D (series AS
/// 89 of Best and Roberts 1975).
[[nodiscard]] double rankCorrelationSeries(double n, double D);

}  // namespace TBVNonPara
