#include "tbvnonpara/engine/group_summary.hpp"

#include <algorithm>

#include "tbvnonpara/core/arithmetic.hpp"

namespace TBVNonPara {

namespace {

constexpr Long half(Long n) {
    return n.value() / 2;
}

constexpr bool isOdd(Long n) {
    return n.value() % 2 != 0;
}

/// The median of the n cells from row `first` on; 0 of none.
double median(const Grid<double>& sorted, Long first, Long n) {
    const Long middle = half(n) + first;
    if (isOdd(n)) {
        return sorted(middle, 1);
    }
    return n > Long(0) ? checked(sorted(middle - 1, 1) + sorted(middle, 1)) / 2 : 0;
}

double sum(const Grid<double>& sorted, Long first) {
    double total = 0;
    for (Long i = first; i <= sorted.rows(); ++i) {
        total += sorted(i, 1);
    }
    return checked(total);
}

/// Summarises the last n of these values, ascending, as group g.
void summarise(GroupSummary& summary, Long g, std::span<const double> values, Long n,
               const ArrayUtility& utility) {
    Grid<double> sorted(Long(values.size()), 1);
    std::ranges::copy(values, sorted.column(1).begin());
    utility.SortRows(sorted, 0, 1);
    const Long first = sorted.rows() - n + 1;
    summary.sums(g) = sum(sorted, first);
    summary.medians(g) = median(sorted, first, n);
    summary.ns(g) = n;
}

GroupSummary summaryOf(Long groups) {
    return {Array<double>(groups), Array<double>(groups), Array<Long>(groups)};
}

/// Summarises every column of a grid; countOf(c) says how many values column c has.
template <typename CountOf>
GroupSummary summariseEach(const Grid<double>& values, const ArrayUtility& utility, CountOf countOf) {
    GroupSummary summary = summaryOf(values.columns());
    for (Long c = 1; c <= values.columns(); ++c) {
        summarise(summary, c, values.column(c), countOf(c), utility);
    }
    return summary;
}

}  // namespace

GroupSummaries summariseGroups(const Grid<double>& data, const Grid<double>& ranks,
                               const ArrayUtility& utility, const std::optional<Array<Long>>& counts) {
    // A list longer than the data has columns carries the counts of the rank columns behind those of the
    // data.
    const Long before = counts && counts->size() > data.columns() ? data.columns() : Long(0);
    const auto countIn = [&counts](const Grid<double>& values, Long entry) {
        return counts ? (*counts)(entry) : values.rows();
    };
    return {summariseEach(data, utility, [&](Long c) { return countIn(data, c); }),
            summariseEach(ranks, utility, [&](Long c) { return countIn(ranks, before + c); })};
}

GroupSummary summariseColumns(const Grid<double>& values, const ArrayUtility& utility) {
    return summariseEach(values, utility, [&](Long) { return values.rows(); });
}

GroupSummary summariseLists(std::span<const Array<double>> lists, const ArrayUtility& utility) {
    GroupSummary summary = summaryOf(Long(lists.size()));
    Long g;
    for (const Array<double>& list : lists) {
        ++g;
        summarise(summary, g, list.elements(), list.size(), utility);
    }
    return summary;
}

}  // namespace TBVNonPara
