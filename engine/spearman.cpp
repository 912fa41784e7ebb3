#include "core/arithmetic.hpp"
#include "engine/clsNonParaBO.hpp"
#include "engine/distributions.hpp"

namespace TBVNonPara {

namespace {

/// In this test the group column holds the row of the variable that a value comes from.
constexpr DataColumn Row = Group;

/// A variable with the ranks of its values, row by row.
struct RankedVariable {
    DataTable table;
    double tieTerm = 0;
};

RankedVariable rankVariable(const ValueGrid& variable, Long n, const ArrayUtility& utility) {
    RankedVariable ranked{DataTable(n, 4)};
    for (Long i = 1; i <= n; ++i) {
        ranked.table(i, Value) = toDouble(variable(i, 1));
        ranked.table(i, Row) = toDouble(i);
    }
    // Divided by the number of pairs, not by 12 as in textbooks: clients rely on the figures.
    ranked.tieTerm = tieSum(RankValues(ranked.table, utility, false)) / toDouble(n);
    return ranked;
}

double sumOfSquaredRankDifferences(const DataTable& X, const DataTable& Y) {
    double D = 0;
    for (Long i = 1; i <= X.rows(); ++i) {
        const double difference = X(i, Rank) - Y(i, Rank);
        D += difference * difference;
    }
    return D;
}

Grid<double> sideBySide(const DataTable& X, const DataTable& Y, DataColumn column) {
    Grid<double> both(X.rows(), 2);
    for (Long i = 1; i <= X.rows(); ++i) {
        both(i, 1) = X(i, column);
        both(i, 2) = Y(i, column);
    }
    return both;
}

}  // namespace

void clsNonParaBO::AnalyseSpearman() try {
    const Long n = m_Ys.rows();
    auto [X, Tx] = rankVariable(m_Ys, n, *m_Utility);
    auto [Y, Ty] = rankVariable(m_Xs, n, *m_Utility);
    sortBy(X, *m_Utility, Row);
    sortBy(Y, *m_Utility, Row);

    // Ahead of rs: of a single pair, DivisionByZero is reported here, before rs becomes 0 / 0.
    const double standardError = squareRoot(divide(1, toDouble(n - 1)));
    const double D = sumOfSquaredRankDifferences(X, Y);
    const double pairs = toDouble(n);
    const double K = (pairs * pairs * pairs - pairs) / 6;
    const double rs = divide(K - D - Tx - Ty, squareRoot((K - 2 * Ty) * (K - 2 * Tx)));

    m_Data = sideBySide(X, Y, Value);
    m_Ranks = sideBySide(X, Y, Rank);
    store(SummariseGroups(m_Data, m_Ranks, *m_Utility));
    m_Statistic = rs;
    m_P = SpearmanP(n, rs, m_Tails, m_Companions.application);
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
