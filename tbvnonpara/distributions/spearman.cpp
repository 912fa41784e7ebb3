#include "tbvnonpara/distributions/spearman.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/probability.hpp"

namespace TBVNonPara {

namespace {

double factorial(Long n) {
    double product = 1;
    for (Long i = 2; i <= n; ++i) {
        product *= toDouble(i);
    }
    return product;
}

/// The part of all permutations of 1..n whose sum of squared rank differences is at least D0.
double permutationTail(Long n, double D0) {
    std::vector<int> permutation(static_cast<std::size_t>(n.value()));
    std::iota(permutation.begin(), permutation.end(), 1);
    double extreme = 0;
    do {
        int S = 0;
        int i = 0;
        for (const int rank : permutation) {
            i += 1;
            S += (i - rank) * (i - rank);
        }
        extreme += S >= D0 ? 1 : 0;
    } while (std::ranges::next_permutation(permutation).found);
    return extreme / factorial(n);
}

/// The correction of the normal tail at x (Edgeworth), without the density.
double edgeworthSeries(double n, double x) noexcept {
    const auto power = [x](int exponent) { return std::pow(x, exponent); };
    const double H3 = power(3) - 3 * x;
    const double H5 = power(5) - 10 * power(3) + 15 * x;
    const double H7 = power(7) - 21 * power(5) + 105 * power(3) - 105 * x;
    const double H9 = power(9) - 36 * power(7) + 378 * power(5) - 1260 * power(3) + 945 * x;
    const double H11 =
        power(11) - 55 * power(9) + 990 * power(7) - 6930 * power(5) + 17325 * power(3) - 10395 * x;
    const double k4 = -4.56 / n;
    const double k6 = 114.22 / (n * n);
    const double k8 = -6902 / (n * n * n);
    // The last term is subtracted, although k4 enters by its third power: clients know these values.
    return (k6 / 720) * H5 + (k4 / 24) * H3 + (k4 * k4 / 1152) * H7 + (k8 / 40320) * H7 +
           (k4 * k6 / 17280) * H9 - (k4 * k4 * k4 / 82944) * H11;
}

double seriesTail(double n, double D0, const NormalTail& normal) {
    const double pi = 4 * std::atan(1.0);
    const double x = (6 * (D0 - 1) / ((n * n - 1) * n) - 1) * std::sqrt(n - 1);
    const double Q = 1 - normal(x);
    const double phi = std::exp(-(x * x) / 2) / std::sqrt(2 * pi);
    return Q + phi * edgeworthSeries(n, x);
}

/// A sum of squared rank differences that was recovered from rs: the whole number where it is one but for
/// rounding in the last places.
double withoutRounding(double D0) noexcept {
    constexpr double lastPlaces = 16 * std::numeric_limits<double>::epsilon();
    const double whole = std::nearbyint(D0);
    return std::abs(D0 - whole) <= lastPlaces * D0 ? whole : D0;
}

}  // namespace

double spearmanP(Long n, double rs, TBVNPTails tails, const NormalTail& normal) {
    constexpr Long lastExact = 7;
    if (n < Long(2)) {
        return 1;
    }
    const double pairs = toDouble(n);
    const double D0 = withoutRounding((pairs * pairs - 1) * pairs * (1 + std::abs(rs)) / 6);
    const double Pu = n <= lastExact ? permutationTail(n, D0) : seriesTail(pairs, D0, normal);
    switch (tails) {
        case tbvNPTwoTailed:
            return clampedToOne(2 * Pu);
        case tbvNPVar1GTVar2:
            return clampedToOne(rs >= 0 ? Pu : 1 - Pu);
        case tbvNPVar1LTVar2:
            return clampedToOne(rs <= 0 ? Pu : 1 - Pu);
    }
    return clampedToOne(Pu);
}

}  // namespace TBVNonPara
