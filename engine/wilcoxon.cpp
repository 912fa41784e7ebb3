#include <algorithm>

#include "engine/clsNonParaBO.hpp"
#include "engine/distributions.hpp"

namespace TBVNonPara {

namespace {

constexpr Long lastExact = 50;

/// The rank sum whose small values speak for the alternative.
double chooseT(const RankSums& T, TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return T.second;
        case tbvNPVar1LTVar2:
            return T.first;
        default:
            return std::min(T.first, T.second);
    }
}

void copyPairs(const ValueGrid& first, const ValueGrid& second, Grid<double>& data) {
    const Long n = first.rows();
    data = Grid<double>(n, 2);
    for (Long i = 1; i <= n; ++i) {
        data(i, 1) = toDouble(first(i, 1));
        data(i, 2) = toDouble(second(i, 1));
    }
}

/// The ranks of the positive, the negative and the zero differences, each in a column of its own from the
/// top.
struct RanksBySign {
    Grid<double> ranks;
    Array<Long> counts;
};

RanksBySign ranksBySign(const DataTable& table, Long n) {
    RanksBySign bySign{Grid<double>(n, 3), Array<Long>(3)};
    // A pair with a blank makes the table shorter than n, and reading it fails: pairs must be complete.
    for (Long i = 1; i <= n; ++i) {
        const auto sign = static_cast<Index>(table(i, Group));
        ++bySign.counts(sign);
        bySign.ranks(bySign.counts(sign), sign) = table(i, Rank);
    }
    return bySign;
}

/// Difference, rank and signed rank of each pair. Unlike the ranks, the differences shown are not rounded.
void signRanks(const DataTable& table, const Grid<double>& data, Grid<double>& ranks) {
    const Long n = data.rows();
    ranks = Grid<double>(n, 3);
    for (Long i = 1; i <= n; ++i) {
        const double rank = table(i, Rank);
        ranks(i, 1) = data(i, 1) - data(i, 2);
        ranks(i, 2) = rank;
        ranks(i, 3) = table(i, Group) == Negative ? -rank : rank;
    }
}

}  // namespace

void clsNonParaBO::AnalyseWilcoxon() try {
    const Long n = m_Ys.rows();
    DataTable table = PairedDifferences(m_Ys, m_Xs);
    RankValues(table, *m_Utility, m_IgnoreTies);
    RankSums sums;
    SumRanksByGroup(table, sums);
    const double T = chooseT(sums, m_Tails);

    sortBy(table, *m_Utility, Sequence);
    copyPairs(m_Ys, m_Xs, m_Data);
    const auto [ranks, counts] = ranksBySign(table, n);
    store(SummariseGroups(m_Data, ranks, *m_Utility, Array<Long>{n, n, counts(1), counts(2), counts(3)}));
    signRanks(table, m_Data, m_Ranks);

    sortBy(table, *m_Utility, Value);
    const bool oneTailed = m_Tails != tbvNPTwoTailed;
    if (table.rows() <= lastExact) {
        m_P = WilcoxonTDist(table, T, oneTailed);
        m_Statistic = T;
    } else {
        m_UseApprox = true;
        m_P = WilcoxonZApprox(table, T, oneTailed, m_Statistic);
        m_AlternateStat = m_Statistic;
        m_AlternateP = m_P;
    }
    m_DF = {m_IgnoreTies ? sums.firstCount + sums.secondCount : n};
    m_AlternateDF = m_DF;
} catch (...) {
    passOn("clsNonParaBO.AnalyseWilcoxon");
}

}  // namespace TBVNonPara
