#include "tbvnonpara/distributions/mann_whitney.hpp"

#include <algorithm>

#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/engine/pooled_groups.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

/// One column per sample in entry order, 0 below the shorter one. n1 and n2 count blank cells too, the values
/// do not: with a blank the samples are cut in the wrong place and the values end too early.
void splitIntoSamples(const Array<double>& values, const RankedValues& ranked, Long n1, Long n2,
                      Grid<double>& data, Grid<double>& ranks) {
    data = Grid<double>(std::max(n1, n2), 2);
    ranks = Grid<double>(std::max(n1, n2), 2);
    ranked.visit([&, end = toIndex(n1)](Index position, double rank) {
        const bool isFirst = position < end;
        ranks(position + (isFirst ? 1 : 1 - end), isFirst ? 1 : 2) = rank;
    });
    for (Long i = 1; i <= n1; ++i) {
        data(i, 1) = values(i);
    }
    for (Long j = 1; j <= n2; ++j) {
        data(j, 2) = values(n1 + j);
    }
}

}  // namespace

void clsNonParaBO::AnalyseMannWhitney() try {
    const Long n1 = m_Ys.rows();
    const Long n2 = m_Xs.rows();

    auto [values, counts] = combineSamples(m_Ys, m_Xs);
    RankedValues ranked = rankValues(m_Utility->OrderOf(values.elements()));
    const double ties = tieSum(ranked.tieCounts);
    const auto sampleOf = [split = toIndex(counts(1))](Index i) { return i <= split ? 1 : 2; };
    const RankSums R = sumRanksByGroup(ranked, sampleOf);

    const double pairs = toDouble(n1) * toDouble(n2);  // 50,000 rows each must not overflow
    const double U1 = pairs + toDouble(n1) * toDouble(n1 + 1) / 2 - R.first;
    const double U2 = pairs - U1;
    if (m_WantsDescriptives) {
        GroupDescriptives& groups = m_Descriptives.write(m_Utility);
        splitIntoSamples(values, ranked, n1, n2, groups.data, groups.ranks);
        values = {};
        ranked = {};
        groups.summaries = summariseGroups(groups.data, groups.ranks, *m_Utility, Array<Long>{n1, n2});
    }
    m_P = mannWhitneyP(n1, n2, U1, U2, ties, m_Tails, normal(), m_Companions.mannWhitneyCounts.get());
    m_Statistic = chooseU(U1, U2, m_Tails);
    m_DF = {n1, n2};
} catch (...) {
    passOn("clsNonParaBO.AnalyseMannWhitney");
}

}  // namespace TBVNonPara
