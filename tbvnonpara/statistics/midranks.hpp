#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::statistics {

/// Equal values among N ranked ones, in groups of t; `factor` is that of a variance.
struct Ties {
    std::size_t groups = 0;   ///< groups of equal values
    std::size_t values = 0;   ///< values in them
    std::size_t largest = 1;  ///< size of the largest
    double sum = 0;           ///< of t^3 - t
    double factor = 1;        ///< 1 - sum / (N^3 - N)
};

/// @cond
/// Ranks where the values stand, equal ones with the mean of theirs; the ranks in ascending order; the ties.
struct Midranks {
    std::vector<double> ranks;
    std::vector<double> ascending;
    Ties ties;
};

/// O(n log n); 0 and -0 are equal.
[[nodiscard]] TBVNONPARA_API Midranks midranks(std::span<const double> values);

template <typename Member>
void visit(const Ties& ties, Member& member) {
    member("groups", ties.groups);
    member("values", ties.values);
    member("largest", ties.largest);
    member("sum", ties.sum);
    member("factor", ties.factor);
}
/// @endcond

}  // namespace TBVNonPara::statistics
