#include "tbvnonpara/statistics/newcombe.hpp"

#include <cmath>
#include <numeric>

#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Halves the stretch from `inside`, where theta is within reach of A, to `outside`, sixty times.
template <typename WithinReach>
double lastWithinReach(double inside, double outside, WithinReach withinReach) {
    constexpr int halvings = 60;
    for (int i = 0; i < halvings; ++i) {
        const double middle = std::midpoint(inside, outside);
        (withinReach(middle) ? inside : outside) = middle;
    }
    return inside;
}

}  // namespace

Estimate superiorityOf(double A, double n1, double n2, double tieFactor, double confidence) {
    if (!(tieFactor > 0)) {
        return {A, {}, {}};
    }
    const double z = normalQuantile(confidence);
    const double s = (n1 + n2) / 2 - 1;
    const auto withinReach = [=](double theta) {
        const double V = tieFactor * theta * (1 - theta) *
                         (1 + s * (1 - theta) / (2 - theta) + s * theta / (1 + theta)) / (n1 * n2);
        return std::abs(A - theta) <= z * std::sqrt(V);
    };
    return {A, A == 0 ? 0 : lastWithinReach(A, 0, withinReach),
            A == 1 ? 1 : lastWithinReach(A, 1, withinReach)};
}

}  // namespace TBVNonPara::statistics
