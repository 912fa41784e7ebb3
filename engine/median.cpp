#include <utility>

#include "core/arithmetic.hpp"
#include "core/conversions.hpp"
#include "engine/clsNonParaBO.hpp"
#include "engine/k_samples.hpp"

namespace TBVNonPara {

namespace {

/// The middle value of a table sorted by value; without any value the median that was there before.
double grandMedian(const DataTable& table, double previous) {
    const Index N = toIndex(table.rows());
    if (N % 2 != 0) {
        return table(N / 2 + 1, Value);
    }
    if (N != 0) {
        return checked(table(N / 2, Value) + table(N / 2 + 1, Value)) / 2;
    }
    return previous;
}

/// Two rows of counts, above the median and not above it, with labels in the first row and column.
ValueGrid labelledCounts(const Array<Long>& above, const Array<Long>& notAbove) {
    const Long groups = above.size();
    ValueGrid counts(3, groups + 1);
    counts(2, 1) = "ROW1";
    counts(3, 1) = "ROW2";
    for (Long g = 1; g <= groups; ++g) {
        counts(1, g + 1) = "COL" + toText(g);
        counts(2, g + 1) = toDouble(above(g));
        counts(3, g + 1) = toDouble(notAbove(g));
    }
    return counts;
}

ValueGrid countAround(double median, const PooledGroups& groups) {
    Array<Long> above(groups.counts.size());
    Array<Long> notAbove(groups.counts.size());
    for (Long i = 1; i <= groups.table.rows(); ++i) {
        const auto g = static_cast<Index>(groups.table(i, Group));
        Array<Long>& row = groups.table(i, Value) > median ? above : notAbove;
        row(g) += 1;
    }
    return labelledCounts(above, notAbove);
}

}  // namespace

void clsNonParaBO::AnalyseMedian() try {
    PooledGroups groups = poolGroups(m_Ys);
    RankValues(groups.table, *m_Utility, false);
    m_GrandMedian = grandMedian(groups.table, m_GrandMedian);

    const ValueGrid counts = countAround(m_GrandMedian, groups);
    m_Other = counts;
    m_ContingencyResults = m_Companions.createContingencyAnalysis();
    m_ContingencyResults->LetObserved(counts);
    m_ContingencyResults->LetExpectedFrom(0);
    m_ContingencyResults->LetLabels(true);
    m_ContingencyResults->Calculate();
    if (!m_Descriptives) {
        return;
    }

    GroupGrids grids = spreadOverGroups(groups, m_Ys.rows());
    m_Data = std::move(grids.data);
    m_Ranks = std::move(grids.ranks);
    store(SummariseGroups(m_Data, m_Ranks, *m_Utility, groups.counts));
} catch (...) {
    passOn("clsNonParaBO.AnalyseMedian");
}

}  // namespace TBVNonPara
