#include "tbvnonpara/engine/distributions.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <vector>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

namespace {

double normsdist(const ObjectRef<WorksheetHost>& host, double z) {
    return host->GetWorksheetFunction().NORMSDIST(z);
}

double asProbability(double P) noexcept {
    return std::clamp(P, 0.0, 1.0);
}

/// F(k) counts the arrangements of two samples that give U = k - 1 (generator of Dinneen and Blakesley). A
/// step takes differences of numbers far larger than their result: at 223 x 223 doubles would keep 8 digits
/// of 16.
Array<DoubleDouble> frequenciesOfU(Long n1, Long n2) {
    const Index mx = toIndex(std::max(n1, n2));
    const Index mn = toIndex(std::min(n1, n2));
    const Long M = n1 * n2;
    Array<DoubleDouble> F(M + 1);
    Array<DoubleDouble> W(roundHalfToEven(toDouble(M + 1) / 2 + toDouble(Long(mn)) + 1));
    for (Index k = 1; k <= mx + 1; ++k) {
        F(k) = 1;
    }
    W(1) = 0;
    for (Index i = 2; i <= mn; ++i) {
        W(i) = 0;
        const Index S = mx * i;
        for (Index j = 1; j <= (S + 2) / 2; ++j) {
            const DoubleDouble sum = F(j) + W(j);
            F(j) = sum;
            W(i + j) = sum - F(S + 2 - j);
            F(S + 2 - j) = sum;
        }
    }
    return F;
}

double sumFrom(const Array<DoubleDouble>& F, Long first) {
    DoubleDouble sum;
    for (Long k = first; k <= F.size(); ++k) {
        sum += F(k);
    }
    return toDouble(sum);
}

double exactP(Long n1, Long n2, double U, TBVNPTails tails) {
    const Array<DoubleDouble> F = frequenciesOfU(n1, n2);
    const double total = sumFrom(F, 1);
    // With blank cells counted as observations U can lie outside 0..n1 x n2: above, no term is left; below
    // -1, the first term has no place in F.
    const double P = sumFrom(F, roundHalfToEven(U + 1)) / total;
    return tails == tbvNPTwoTailed ? 2 * P : P;
}

double varianceOfU(double n1, double n2, double tieSum) {
    const double N = n1 + n2;
    if (tieSum <= 0) {
        return n1 * n2 * (N + 1) / 12;
    }
    return (n1 * n2 / (N * N - N)) * (N * N * N - N - tieSum) / 12;
}

double approximateP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                    const ObjectRef<WorksheetHost>& host) {
    const double mean = toDouble(n1) * toDouble(n2) / 2;
    const double variance = varianceOfU(toDouble(n1), toDouble(n2), tieSum);
    const double U = chooseU(U1, U2, tails);
    const double z = divide(std::abs(U - mean) - 0.5, squareRoot(variance));
    const double Phi = normsdist(host, z);
    switch (tails) {
        case tbvNPTwoTailed:
            return 2 * (1 - Phi);
        case tbvNPVar1GTVar2:
            return U1 < U2 ? 1 - Phi : Phi;
        case tbvNPVar1LTVar2:
            return U1 > U2 ? 1 - Phi : Phi;
    }
    return 1 - Phi;
}

/// The ranks of the ranked rows, doubled when one of them is not whole.
struct WholeRanks {
    std::vector<Long> ranks;
    double scale = 1;
};

WholeRanks wholeRanks(std::span<const double> ranks) {
    WholeRanks whole;
    for (const double rank : ranks) {
        if (rank != std::floor(rank)) {
            whole.scale = 2;
        }
    }
    for (const double rank : ranks) {
        if (rank != 0) {
            whole.ranks.push_back(roundHalfToEven(rank * whole.scale));
        }
    }
    return whole;
}

/// How many subsets of the ranks have a sum of at most `limit`, which is not negative.
double countSubsets(const std::vector<Long>& ranks, Long limit) {
    // The number of subsets with the sum s stands at s, without and with the rank added last.
    std::vector<double> counts(static_cast<std::size_t>(limit.value()) + 1);
    std::vector<double> extended = counts;
    counts.front() = 1;
    Index reached = 0;
    for (const Long rank : ranks) {
        const Index r = std::min(toIndex(rank), toIndex(limit) + 1);
        reached = std::min(reached + toIndex(rank), toIndex(limit));
        std::copy(counts.begin(), counts.begin() + r, extended.begin());
        std::transform(counts.begin() + r, counts.begin() + reached + 1, counts.begin(), extended.begin() + r,
                       std::plus<>());
        counts.swap(extended);
    }
    return std::accumulate(counts.begin(), counts.end(), 0.0);
}

RankedDifferences rankedRows(const DataTable& table) {
    RankedDifferences rows;
    double tied = 1;
    const auto closeTie = [&] {
        rows.tieSum += tied * tied * tied - tied;
        tied = 1;
    };
    for (Long i = 1; i <= table.rows(); ++i) {
        if (table(i, Rank) == 0) {
            continue;
        }
        rows.n += 1;
        if (table(i, Group) == Zero) {
            rows.zeros += 1;
        }
        if (i > Long(1) && table(i - 1, Rank) == table(i, Rank)) {
            tied += 1;
        } else {
            closeTie();
        }
    }
    closeTie();
    return rows;
}

double factorial(Long n) {
    double product = 1;
    for (Long i = 2; i <= n; ++i) {
        product *= toDouble(i);
    }
    return product;
}

/// The part of all permutations of 1..n whose sum of squared rank differences is at least D0.
double exactTail(Long n, double D0) {
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

double seriesTail(double n, double D0, const ObjectRef<WorksheetHost>& host) {
    const double pi = 4 * std::atan(1.0);
    const double x = (6 * (D0 - 1) / ((n * n - 1) * n) - 1) * std::sqrt(n - 1);
    const double Q = 1 - normsdist(host, x);
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

double chooseU(double U1, double U2, TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return U2;
        case tbvNPVar1LTVar2:
            return U1;
        default:
            return U2 > U1 ? U2 : U1;
    }
}

double MannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                    const ObjectRef<WorksheetHost>& host) {
    constexpr double approximateFrom = 50000;
    const double pairs = toDouble(n1) * toDouble(n2);
    return asProbability(pairs < approximateFrom ? exactP(n1, n2, chooseU(U1, U2, tails), tails)
                                                 : approximateP(n1, n2, U1, U2, tieSum, tails, host));
}

double WilcoxonTDist(const DataTable& table, double T, bool oneTailed) {
    const std::span<const double> none;
    return WilcoxonTDist(table.rows() == Long(0) ? none : table.column(Rank), T, oneTailed);
}

double WilcoxonTDist(std::span<const double> ranks, double T, bool oneTailed) {
    const WholeRanks whole = wholeRanks(ranks);
    const double subsets = checked(std::ldexp(1.0, static_cast<int>(whole.ranks.size())));
    const double sumOfAll = std::accumulate(whole.ranks.begin(), whole.ranks.end(), 0.0,
                                            [](double sum, Long rank) { return sum + toDouble(rank); });
    const double limit = std::floor(std::min(T * whole.scale, sumOfAll));
    if (limit < 0) {
        return 0;
    }
    const double P = countSubsets(whole.ranks, roundHalfToEven(limit)) / subsets;
    return asProbability(oneTailed ? P : 2 * P);
}

double WilcoxonZApprox(const DataTable& table, double T, bool oneTailed, double& Z,
                       const ObjectRef<WorksheetHost>& host) {
    return WilcoxonZApprox(rankedRows(table), T, oneTailed, Z, host);
}

double WilcoxonZApprox(const RankedDifferences& ranked, double T, bool oneTailed, double& Z,
                       const ObjectRef<WorksheetHost>& host) {
    const auto [n, z0, ties] = ranked;
    const double variance = (n * (n + 1) * (2 * n + 1) - z0 * (z0 + 1) * (2 * z0 + 1) - ties / 2) / 24;
    const double sd = squareRoot(variance);
    const double mean = (n * (n + 1) - z0 * (z0 + 1)) / 4;
    Z = divide(T - mean, sd);
    const double P = std::abs(normsdist(host, Z));
    Z = std::abs(Z);
    return std::min(oneTailed ? P : 2 * P, 1.0);
}

double SpearmanP(Long n, double rs, TBVNPTails tails, const ObjectRef<WorksheetHost>& host) {
    constexpr Long lastExact = 7;
    if (n < Long(2)) {
        return 1;
    }
    const double pairs = toDouble(n);
    const double D0 = withoutRounding((pairs * pairs - 1) * pairs * (1 + std::abs(rs)) / 6);
    const double Pu = n <= lastExact ? exactTail(n, D0) : seriesTail(pairs, D0, host);
    switch (tails) {
        case tbvNPTwoTailed:
            return asProbability(2 * Pu);
        case tbvNPVar1GTVar2:
            return asProbability(rs >= 0 ? Pu : 1 - Pu);
        case tbvNPVar1LTVar2:
            return asProbability(rs <= 0 ? Pu : 1 - Pu);
    }
    return asProbability(Pu);
}

}  // namespace TBVNonPara
