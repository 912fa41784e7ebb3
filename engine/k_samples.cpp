#include "engine/k_samples.hpp"

namespace TBVNonPara {

namespace {

Array<Long> countObservations(const ValueGrid& values) {
    const Long groups = values.columns();
    Array<Long> counts(groups);
    for (Long g = 1; g <= groups; ++g) {
        for (const CellValue& cell : values.column(g)) {
            if (!isEmpty(cell)) {
                counts(g) += 1;
            }
        }
    }
    return counts;
}

Long total(const Array<Long>& counts) {
    Long sum;
    for (const Long count : counts.elements()) {
        sum += count;
    }
    return sum;
}

/// How many rows of the pooled table stand before each group.
Array<Long> offsetsOf(const Array<Long>& counts) {
    Array<Long> offsets(counts.size());
    for (Long g = 2; g <= counts.size(); ++g) {
        offsets(g) = offsets(g - 1) + counts(g - 1);
    }
    return offsets;
}

}  // namespace

PooledGroups poolGroups(const ValueGrid& values) {
    const Long groups = values.columns();
    PooledGroups pooled;
    pooled.counts = countObservations(values);
    pooled.table = DataTable(total(pooled.counts), 4);
    Long row;
    for (Long g = 1; g <= groups; ++g) {
        for (const CellValue& cell : values.column(g)) {
            if (!isEmpty(cell)) {
                row += 1;
                pooled.table(row, Value) = toDouble(cell);
                pooled.table(row, Group) = toDouble(g);
                pooled.table(row, Sequence) = toDouble(row);
            }
        }
    }
    return pooled;
}

GroupGrids spreadOverGroups(const PooledGroups& groups, Long rows) {
    const DataTable& table = groups.table;
    const Array<Long> offsets = offsetsOf(groups.counts);
    GroupGrids grids{Grid<double>(rows, groups.counts.size()), Grid<double>(rows, groups.counts.size())};
    for (Long i = 1; i <= table.rows(); ++i) {
        const auto g = static_cast<Index>(table(i, Group));
        const Index j = static_cast<Index>(table(i, Sequence)) - toIndex(offsets(g));
        grids.data(j, g) = table(i, Value);
        grids.ranks(j, g) = table(i, Rank);
    }
    return grids;
}

double cubed(Long n) noexcept {
    return toDouble(n) * toDouble(n) * toDouble(n);
}

}  // namespace TBVNonPara
