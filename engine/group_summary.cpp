#include "engine/group_summary.hpp"

#include <algorithm>

#include "core/arithmetic.hpp"

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

/// One column of a grid, ascending.
Grid<double> sortedColumn(const Grid<double>& values, Long column, const ArrayUtility& utility) {
    Grid<double> sorted(values.rows(), 1);
    std::ranges::copy(values.column(column), sorted.column(1).begin());
    utility.SortRows(sorted, 0, 1);
    return sorted;
}

/// Summarises every column of a grid; countOf(c) says how many values column c has.
template <typename CountOf>
GroupSummary summarise(const Grid<double>& values, const ArrayUtility& utility, CountOf countOf) {
    const Long columns = values.columns();
    GroupSummary summary{Array<double>(columns), Array<double>(columns), Array<Long>(columns)};
    for (Long c = 1; c <= columns; ++c) {
        const Long n = countOf(c);
        const Grid<double> sorted = sortedColumn(values, c, utility);
        const Long first = values.rows() - n + 1;
        summary.sums(c) = sum(sorted, first);
        summary.medians(c) = median(sorted, first, n);
        summary.ns(c) = n;
    }
    return summary;
}

}  // namespace

GroupSummaries SummariseGroups(const Grid<double>& data, const Grid<double>& ranks,
                               const ArrayUtility& utility, const std::optional<Array<Long>>& counts) {
    // A list longer than the data has columns carries the counts of the rank columns behind those of the
    // data.
    const Long before = counts && counts->size() > data.columns() ? data.columns() : Long(0);
    const auto countIn = [&counts](const Grid<double>& values, Long entry) {
        return counts ? (*counts)(entry) : values.rows();
    };
    return {summarise(data, utility, [&](Long c) { return countIn(data, c); }),
            summarise(ranks, utility, [&](Long c) { return countIn(ranks, before + c); })};
}

}  // namespace TBVNonPara
