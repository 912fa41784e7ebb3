#include <cmath>
#include <utility>
#include <vector>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

/// Values and within-block ranks, blocks x treatments, and the tie total of all blocks.
struct RankedBlocks {
    Grid<double> data;
    Grid<double> ranks;
    double T = 0;
};

/// The ranks within one block, by counting for each value those below it and those equal to it. Returns the
/// sum of t^3 - t over the ties.
double rankNarrowBlock(std::span<const double> values, std::span<double> ranks) {
    double T = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        int below = 0;
        int equal = 0;
        for (const double other : values) {
            below += other < values[i] ? 1 : 0;
            equal += other == values[i] ? 1 : 0;
        }
        ranks[i] = below + (equal + 1) * 0.5;
        T += equal * equal - 1;  // t values of a tie add t (t^2 - 1)
    }
    return T;
}

double rankWideBlock(std::span<const double> values, std::span<double> ranks, const ArrayUtility& utility) {
    return tieSum(rankValues(utility.OrderOf(values), ranks));
}

/// An empty cell is no gap: it takes part in its block as 0.
RankedBlocks rankWithinBlocks(const ValueGrid& values, const ArrayUtility& utility) {
    constexpr std::size_t widestToCount = 32;
    const Long b = values.rows();
    const Long k = values.columns();
    RankedBlocks ranked{Grid<double>(b, k), Grid<double>(b, k)};
    std::vector<double> block(static_cast<std::size_t>(k.value()));
    std::vector<double> ranks(block.size());
    for (Long j = 1; j <= b; ++j) {
        for (Long i = 1; i <= k; ++i) {
            block[static_cast<std::size_t>(toIndex(i) - 1)] = ranked.data(j, i) = toDouble(values(j, i));
        }
        ranked.T += block.size() <= widestToCount ? rankNarrowBlock(block, ranks)
                                                  : rankWideBlock(block, ranks, utility);
        for (Long i = 1; i <= k; ++i) {
            ranked.ranks(j, i) = ranks[static_cast<std::size_t>(toIndex(i) - 1)];
        }
    }
    return ranked;
}

double sumOfSquaredRankSums(const Array<double>& rankSums) {
    double S = 0;
    for (const double R : rankSums.elements()) {
        S = checked(S + std::pow(R, 2));
    }
    return S;
}

double friedmanX(double S, Long k, Long b) {
    return checked(divide(12.0 * S, toDouble(k * b * (k + 1))) - toDouble(3 * (k + 1) * b));
}

/// 1 without ties, 0 when every block is wholly tied.
double friedmanTieCorrection(double T, Long k, Long b) {
    return checked(1 - divide(T, (cubed(k) - toDouble(k)) * toDouble(b)));
}

}  // namespace

void clsNonParaBO::AnalyseFriedman() try {
    const Long k = m_Ys.columns();
    const Long b = m_Ys.rows();

    RankedBlocks blocks = rankWithinBlocks(m_Ys, *m_Utility);
    m_Data = std::move(blocks.data);
    m_Ranks = std::move(blocks.ranks);
    store(summariseGroups(m_Data, m_Ranks, *m_Utility));

    const double S = sumOfSquaredRankSums(m_SumsRank);
    const double X = friedmanX(S, k, b);
    m_Statistic = divide(X, friedmanTieCorrection(blocks.T, k, b));
    m_DF = {k - 1};
    m_P = functions().ChiDist(m_Statistic, m_DF(1));

    // F of the uncorrected statistic, where that of Kruskal-Wallis takes the corrected one. Clients know
    // both.
    m_AlternateStat = divide(toDouble(b - 1) * X, toDouble((k - 1) * b) - X);
    m_AlternateDF = {k - 1, (k - 1) * (b - 1)};
    m_AlternateP = functions().FDist(m_AlternateStat, m_AlternateDF(1), m_AlternateDF(2));
} catch (...) {
    passOn("clsNonParaBO.AnalyseFriedman");
}

}  // namespace TBVNonPara
