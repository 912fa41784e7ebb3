#include <cmath>
#include <utility>

#include "core/arithmetic.hpp"
#include "engine/clsNonParaBO.hpp"
#include "engine/data_table.hpp"
#include "engine/k_samples.hpp"

namespace TBVNonPara {

namespace {

/// Values and within-block ranks, blocks x treatments, and the tie total of all blocks.
struct RankedBlocks {
    Grid<double> data;
    Grid<double> ranks;
    double T = 0;
};

/// An empty cell is no gap: it takes part in its block as 0.
void readBlock(DataTable& block, const ValueGrid& values, Long j) {
    for (Long i = 1; i <= values.columns(); ++i) {
        block(i, Value) = toDouble(values(j, i));
        block(i, Group) = toDouble(i);
        block(i, Sequence) = toDouble(i);
    }
}

void writeBlock(RankedBlocks& ranked, const DataTable& block, Long j) {
    for (Long row = 1; row <= block.rows(); ++row) {
        const auto treatment = static_cast<Index>(block(row, Sequence));
        ranked.data(j, treatment) = block(row, Value);
        ranked.ranks(j, treatment) = block(row, Rank);
    }
}

RankedBlocks rankWithinBlocks(const ValueGrid& values, const ArrayUtility& utility) {
    const Long b = values.rows();
    const Long k = values.columns();
    RankedBlocks ranked{Grid<double>(b, k), Grid<double>(b, k)};
    DataTable block(k, 4);
    for (Long j = 1; j <= b; ++j) {
        readBlock(block, values, j);
        const TieCounts tieCounts = RankValues(block, utility, false);
        writeBlock(ranked, block, j);
        for (const Long t : tieCounts.elements()) {
            ranked.T = (ranked.T + cubed(t)) - toDouble(t);
        }
    }
    return ranked;
}

double sumOfRankSquares(const Array<double>& rankSums) {
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
double tieCorrection(double T, Long k, Long b) {
    return checked(1 - divide(T, (cubed(k) - toDouble(k)) * toDouble(b)));
}

}  // namespace

void clsNonParaBO::AnalyseFriedman() try {
    const Long k = m_Ys.columns();
    const Long b = m_Ys.rows();

    RankedBlocks blocks = rankWithinBlocks(m_Ys, *m_Utility);
    m_Data = std::move(blocks.data);
    m_Ranks = std::move(blocks.ranks);
    store(SummariseGroups(m_Data, m_Ranks, *m_Utility));

    const double S = sumOfRankSquares(m_SumsRank);
    const double X = friedmanX(S, k, b);
    m_Statistic = divide(X, tieCorrection(blocks.T, k, b));
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
