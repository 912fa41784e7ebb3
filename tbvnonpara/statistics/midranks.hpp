#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace TBVNonPara::statistics {

/// Equal values among ranked ones: in how many groups, how many values, the size of the largest group (1
/// without ties), the sum of t^3 - t over the groups, and the factor 1 - sum / (N^3 - N) of a variance.
struct Ties {
    std::size_t groups = 0;
    std::size_t values = 0;
    std::size_t largest = 1;
    double sum = 0;
    double factor = 1;
};

/// Ranks where the values stand, equal ones with the mean of theirs; the ranks in ascending order; the ties.
struct Midranks {
    std::vector<double> ranks;
    std::vector<double> ascending;
    Ties ties;
};

/// O(n log n); 0 and -0 are equal.
[[nodiscard]] Midranks midranks(std::span<const double> values);

template <typename Member>
void visit(const Ties& ties, Member& member) {
    member("groups", ties.groups);
    member("values", ties.values);
    member("largest", ties.largest);
    member("sum", ties.sum);
    member("factor", ties.factor);
}

}  // namespace TBVNonPara::statistics
