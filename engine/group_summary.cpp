#include "engine/group_summary.hpp"

#include "core/arithmetic.hpp"

namespace TBVNonPara {

namespace {

constexpr Long half(Long n) {
    return n.value() / 2;
}

constexpr bool isOdd(Long n) {
    return n.value() % 2 != 0;
}

/// The median of the n cells of a column from row `first` on, which ascend; 0 of none.
double median(const Grid<double>& sorted, Long column, Long first, Long n) {
    const Long middle = half(n) + first;
    if (isOdd(n)) {
        return sorted(middle, column);
    }
    return n > Long(0) ? checked(sorted(middle - 1, column) + sorted(middle, column)) / 2 : 0;
}

double sum(const Grid<double>& values, Long column, Long first) {
    double total = 0;
    for (Long i = first; i <= values.rows(); ++i) {
        total += values(i, column);
    }
    return checked(total);
}

/// Summarises every column of a grid, which it sorts; countOf(c) says how many values column c has.
template <typename CountOf>
GroupSummary summarise(Grid<double> values, const ArrayUtility& utility, CountOf countOf) {
    const Long columns = values.columns();
    GroupSummary summary{Array<double>(columns), Array<double>(columns), Array<Long>(columns)};
    for (Long c = 1; c <= columns; ++c) {
        const Long n = countOf(c);
        utility.SortRows(values, 0, c);
        const Long first = values.rows() - n + 1;
        summary.sums(c) = sum(values, c, first);
        summary.medians(c) = median(values, c, first, n);
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
