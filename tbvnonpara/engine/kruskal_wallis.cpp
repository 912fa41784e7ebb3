#include <cmath>
#include <utility>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/engine/pooled_groups.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

/// The rank sum of each group, whose ranks stand one group behind the other.
Array<double> rankSumsOf(std::span<const double> ranks, const Array<Long>& counts) {
    Array<double> sums(counts.size());
    for (Long g = 1; g <= counts.size(); ++g) {
        const auto n = static_cast<std::size_t>(counts(g).value());
        sums(g) = sumOfRanks(ranks.first(n));
        ranks = ranks.subspan(n);
    }
    return sums;
}

/// The sum of R^2 / n over the groups. A group without observations faults.
double sumOfRankSquaresByGroup(const Array<double>& rankSums, const Array<Long>& counts) {
    double S = 0;
    for (Long g = 1; g <= counts.size(); ++g) {
        S = checked(S + divide(std::pow(rankSums(g), 2), toDouble(counts(g))));
    }
    return S;
}

double kruskalWallisH(double S, Long N) {
    return checked(divide(12.0 * S, toDouble(N) * toDouble(N + 1)) - toDouble(3 * (N + 1)));
}

/// 1 without ties, 0 when all values are equal.
double kruskalWallisTieCorrection(const TieCounts& tieCounts, Long N) {
    double T = 0;
    for (const Long t : tieCounts.elements()) {
        T = (T + cubed(t)) - toDouble(t);
    }
    return checked(1 - divide(T, cubed(N) - toDouble(N)));
}

}  // namespace

void clsNonParaBO::AnalyseKWallis() try {
    const Long k = m_Ys.columns();

    PooledGroups groups = poolGroups(m_Ys);
    const Long N = groups.values.size();
    AscendingOrder order = m_Utility->OrderOf(groups.values.elements());
    Array<double> ranks(N);  // The sorting was to have this memory.
    const TieCounts tieCounts = rankValues(std::move(order), ranks.elements());

    const Array<Long> counts = groups.counts;
    const Array<double> rankSums = rankSumsOf(ranks.elements(), counts);
    m_Descriptives.keep(std::move(groups), std::move(ranks), m_Ys.rows(), m_Utility);

    const double S = sumOfRankSquaresByGroup(rankSums, counts);
    const double H = kruskalWallisH(S, N);
    m_Statistic = divide(H, kruskalWallisTieCorrection(tieCounts, N));
    m_DF = {k - 1};
    m_P = functions().ChiDist(m_Statistic, m_DF(1));

    // F of the statistic that is corrected for ties; Friedman's F takes the uncorrected one. Its second
    // degrees of freedom are one below the usual N - k. Clients know both.
    const double ChiSq = m_Statistic;
    m_AlternateStat = divide(toDouble(N - k) * ChiSq, (toDouble(N) - ChiSq - 1) * toDouble(k - 1));
    m_AlternateDF = {k - 1, N - k - 1};
    m_AlternateP = functions().FDist(m_AlternateStat, m_AlternateDF(1), m_AlternateDF(2));
} catch (...) {
    passOn("clsNonParaBO.AnalyseKWallis");
}

}  // namespace TBVNonPara
