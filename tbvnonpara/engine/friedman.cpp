#include <algorithm>
#include <array>
#include <cmath>
#include <span>
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

constexpr std::size_t blocksAtOnce = 256;  // What is counted of them stays in the nearest cache.

/// The ranks of one treatment within so many blocks from `begin` on, by counting what of all treatments is
/// below its value and what is equal to it: a compiler does that for several blocks at once. Returns the
/// treatment's part of the sum of t^3 - t over the ties.
double rankTreatment(RankedBlocks& ranked, Long treatment, std::size_t begin, std::size_t blocks) {
    std::array<double, blocksAtOnce> below{};
    std::array<double, blocksAtOnce> equal{};
    const std::span<const double> values = ranked.data.column(treatment).subspan(begin, blocks);
    for (Long other = 1; other <= ranked.data.columns(); ++other) {
        const std::span<const double> others = ranked.data.column(other).subspan(begin, blocks);
        for (std::size_t block = 0; block < blocks; ++block) {
            // Each a number of its own: added in one expression, they become branches.
            const double isBelow = others[block] < values[block] ? 1 : 0;
            const double isEqual = others[block] == values[block] ? 1 : 0;
            below[block] += isBelow;
            equal[block] += isEqual;
        }
    }
    const std::span<double> ranks = ranked.ranks.column(treatment).subspan(begin, blocks);
    double T = 0;
    for (std::size_t block = 0; block < blocks; ++block) {
        ranks[block] = below[block] + (equal[block] + 1) * 0.5;
        T += equal[block] * equal[block] - 1;  // t values of a tie add t (t^2 - 1)
    }
    return T;
}

double rankNarrowBlocks(RankedBlocks& ranked) {
    double T = 0;
    const auto all = static_cast<std::size_t>(ranked.data.rows().value());
    for (std::size_t begin = 0; begin < all; begin += blocksAtOnce) {
        for (Long treatment = 1; treatment <= ranked.data.columns(); ++treatment) {
            T += rankTreatment(ranked, treatment, begin, std::min(blocksAtOnce, all - begin));
        }
    }
    return T;
}

/// The ranks within one block of many treatments.
double rankWideBlock(RankedBlocks& ranked, Long block, const ArrayUtility& utility) {
    const Long k = ranked.data.columns();
    std::vector<double> values;
    for (Long i = 1; i <= k; ++i) {
        values.push_back(ranked.data(block, i));
    }
    std::vector<double> ranks(values.size());
    const double T = tieSum(rankValues(utility.OrderOf(values), ranks));
    for (Long i = 1; i <= k; ++i) {
        ranked.ranks(block, i) = ranks[static_cast<std::size_t>(toIndex(i) - 1)];
    }
    return T;
}

/// An empty cell is no gap: it takes part in its block as 0.
RankedBlocks rankWithinBlocks(const EngineData& values, const ArrayUtility& utility) {
    constexpr Long widestToCount = 32;
    const Long b = values.rows();
    const Long k = values.columns();
    RankedBlocks ranked{Grid<double>(b, k), Grid<double>(b, k)};
    for (Long i = 1; i <= k; ++i) {
        values.read(i, ranked.data.column(i));
    }
    if (k <= widestToCount) {
        ranked.T = rankNarrowBlocks(ranked);
        return ranked;
    }
    for (Long block = 1; block <= b; ++block) {
        ranked.T += rankWideBlock(ranked, block, utility);
    }
    return ranked;
}

/// The sum of the squares of the treatments' rank sums.
double sumOfSquaredRankSums(const Grid<double>& ranks) {
    double S = 0;
    for (Long i = 1; i <= ranks.columns(); ++i) {
        S = checked(S + std::pow(sumOfRanks(ranks.column(i)), 2));
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
    const double S = sumOfSquaredRankSums(blocks.ranks);
    m_Descriptives.keep(std::move(blocks.data), std::move(blocks.ranks), std::nullopt, m_Utility);

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
