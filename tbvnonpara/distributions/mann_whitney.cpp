#include "tbvnonpara/distributions/mann_whitney.hpp"

#include <algorithm>
#include <cmath>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/distributions/probability.hpp"

namespace TBVNonPara {

namespace {

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

double varianceOfU(double n1, double n2, double tieSum) {
    const double N = n1 + n2;
    if (tieSum <= 0) {
        return n1 * n2 * (N + 1) / 12;
    }
    return (n1 * n2 / (N * N - N)) * (N * N * N - N - tieSum) / 12;
}

double approximateMannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                               const NormalTail& normal) {
    const double mean = toDouble(n1) * toDouble(n2) / 2;
    const double variance = varianceOfU(toDouble(n1), toDouble(n2), tieSum);
    const double U = chooseU(U1, U2, tails);
    const double z = divide(std::abs(U - mean) - 0.5, squareRoot(variance));
    const double Phi = normal(z);
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

double mannWhitneyUpperTail(Long n1, Long n2, double U) {
    return MannWhitneyCounts().upperTail(n1, n2, U);
}

const MannWhitneyCounts::Table& MannWhitneyCounts::tableFor(Long n1, Long n2) {
    constexpr Index most = 4'000'000;
    const std::pair<Index, Index> sizes(toIndex(std::min(n1, n2)), toIndex(std::max(n1, n2)));
    const auto known = m_Tables.find(sizes);
    if (known != m_Tables.end()) {
        return known->second;
    }
    Array<DoubleDouble> frequencies = frequenciesOfU(n1, n2);
    const double total = sumFrom(frequencies, 1);
    if (m_Size + toIndex(frequencies.size()) > most) {
        m_Tables.clear();
        m_Size = 0;
    }
    m_Size += toIndex(frequencies.size());
    return m_Tables.emplace(sizes, Table{std::move(frequencies), total}).first->second;
}

double MannWhitneyCounts::upperTail(Long n1, Long n2, double U) {
    const Table& table = tableFor(n1, n2);
    // With blank cells counted as observations U can lie outside 0..n1 x n2: above, no term is left; below
    // -1, the first term has no place in F.
    return sumFrom(table.frequencies, roundHalfToEven(U + 1)) / table.total;
}

std::vector<double> mannWhitneyUpperTails(Long n1, Long n2) {
    const Array<DoubleDouble> F = frequenciesOfU(n1, n2);
    const double total = sumFrom(F, 1);
    std::vector<double> tails(static_cast<std::size_t>(toIndex(F.size())));
    DoubleDouble sum;
    for (std::size_t U = tails.size(); U-- > 0;) {
        sum += F(static_cast<Index>(U) + 1);
        tails[U] = toDouble(sum) / total;
    }
    return tails;
}

double mannWhitneyP(Long n1, Long n2, double U1, double U2, double tieSum, TBVNPTails tails,
                    const NormalTail& normal, MannWhitneyCounts* kept) {
    constexpr double approximateFrom = 50000;
    if (toDouble(n1) * toDouble(n2) >= approximateFrom) {
        return clampedToOne(approximateMannWhitneyP(n1, n2, U1, U2, tieSum, tails, normal));
    }
    const double U = chooseU(U1, U2, tails);
    const double P = kept == nullptr ? mannWhitneyUpperTail(n1, n2, U) : kept->upperTail(n1, n2, U);
    return clampedToOne(tails == tbvNPTwoTailed ? 2 * P : P);
}

}  // namespace TBVNonPara
