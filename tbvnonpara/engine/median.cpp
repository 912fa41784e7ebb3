#include <algorithm>
#include <utility>
#include <vector>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/engine/pooled_groups.hpp"
#include "tbvnonpara/ordering/selection.hpp"

namespace TBVNonPara {

namespace {

/// The middle value; without any value the median that was there before.
double grandMedian(std::span<const double> values, double previous) {
    if (values.empty()) {
        return previous;
    }
    const std::size_t middle = values.size() / 2;
    if (values.size() % 2 != 0) {
        return valuesAtPlaces(values, middle, middle)[0];
    }
    const auto [below, above] = valuesAtPlaces(values, middle - 1, middle);
    return checked(below + above) / 2;
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
    auto first = groups.values.elements().begin();
    for (Long g = 1; g <= groups.counts.size(); ++g) {
        const auto end = first + toIndex(groups.counts(g));
        above(g) = std::count_if(first, end, [median](double value) { return value > median; });
        notAbove(g) = groups.counts(g) - above(g);
        first = end;
    }
    return labelledCounts(above, notAbove);
}

}  // namespace

void clsNonParaBO::AnalyseMedian() try {
    PooledGroups groups = poolGroups(m_Ys);
    const std::span<const double> values = groups.values.elements();
    m_GrandMedian = grandMedian(values, m_GrandMedian);

    const ValueGrid counts = countAround(m_GrandMedian, groups);
    m_Other = counts;
    m_ContingencyResults = m_Companions.createContingencyAnalysis();
    m_ContingencyResults->LetObserved(counts);
    m_ContingencyResults->LetExpectedFrom(0);
    m_ContingencyResults->LetLabels(true);
    m_ContingencyResults->Calculate();
    if (!m_WantsDescriptives) {
        return;
    }

    m_Descriptives.keep(std::move(groups), {}, m_Ys.rows(), m_Utility);
} catch (...) {
    passOn("clsNonParaBO.AnalyseMedian");
}

}  // namespace TBVNonPara
