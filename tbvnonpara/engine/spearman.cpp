#include "tbvnonpara/distributions/spearman.hpp"

#include <utility>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

/// Reads one variable into a column of the data and ranks it into the same column of the ranks. Returns its
/// tie term.
double rankVariable(const EngineData& variable, Long column, Grid<double>& data, Grid<double>& ranks,
                    const ArrayUtility& utility) {
    variable.read(1, data.column(column));
    const TieCounts tieCounts = rankValues(utility.OrderOf(data.column(column)), ranks.column(column));
    // Divided by the number of pairs, not by 12 as in textbooks: clients rely on the figures.
    return tieSum(tieCounts) / toDouble(data.rows());
}

double sumOfSquaredRankDifferences(const Grid<double>& ranks) {
    double D = 0;
    for (Long i = 1; i <= ranks.rows(); ++i) {
        const double difference = ranks(i, 1) - ranks(i, 2);
        D += difference * difference;
    }
    return D;
}

}  // namespace

void clsNonParaBO::AnalyseSpearman() try {
    const Long n = m_Ys.rows();
    Grid<double> data(n, 2);
    Grid<double> ranks(n, 2);
    const double Tx = rankVariable(m_Ys, 1, data, ranks, *m_Utility);
    const double Ty = rankVariable(m_Xs, 2, data, ranks, *m_Utility);

    // Ahead of rs: of a single pair, DivisionByZero is reported here, before rs becomes 0 / 0.
    const double standardError = squareRoot(divide(1, toDouble(n - 1)));
    const double D = sumOfSquaredRankDifferences(ranks);
    const double pairs = toDouble(n);
    const double K = (pairs * pairs * pairs - pairs) / 6;
    const double rs = divide(K - D - Tx - Ty, squareRoot((K - 2 * Ty) * (K - 2 * Tx)));

    m_Descriptives.keep(std::move(data), std::move(ranks), std::nullopt, m_Utility);
    m_Statistic = rs;
    m_P = spearmanP(n, rs, m_Tails, normal());
    m_DF = {n};

    m_AlternateStat = divide(rs, standardError);
    m_AlternateP = 1 - functions().NORMSDIST(m_AlternateStat);
    m_AlternateDF = {n};
    if (m_Tails == tbvNPTwoTailed) {
        // Above 1 for a negative rs: neither tail nor direction is looked at.
        m_AlternateP = 2 * m_AlternateP;
    }
} catch (...) {
    passOn("clsNonParaBO.AnalyseSpearman");
}

}  // namespace TBVNonPara
