#include "tbvnonpara/engine/pooled_groups.hpp"

#include <algorithm>

namespace TBVNonPara {

namespace {

Long countNonEmpty(std::span<const CellValue> cells) {
    return std::ranges::count_if(cells, [](const CellValue& cell) { return !isEmpty(cell); });
}

/// A sample of no rows need not have a column.
std::span<const CellValue> cellsOf(const ValueGrid& sample) {
    return sample.rows() == Long(0) ? std::span<const CellValue>() : sample.column(1);
}

/// Reads the first cells as so many observations: a blank among them is an observation of 0, and as many
/// cells at the end are never read.
void readFirstCells(std::span<const CellValue> cells, std::span<double> observations) {
    std::ranges::transform(cells.first(observations.size()), observations.begin(),
                           [](const CellValue& cell) { return toDouble(cell); });
}

}  // namespace

PooledGroups combineSamples(const ValueGrid& first, const ValueGrid& second) {
    const Long n1 = countNonEmpty(cellsOf(first));
    const Long n2 = countNonEmpty(cellsOf(second));
    PooledGroups pooled{Array<double>(n1 + n2), {n1, n2}};
    const std::span<double> values = pooled.values.elements();
    const auto split = static_cast<std::size_t>(n1.value());
    readFirstCells(cellsOf(first), values.first(split));
    readFirstCells(cellsOf(second), values.subspan(split));
    return pooled;
}

PooledGroups poolGroups(const ValueGrid& values) {
    PooledGroups pooled{Array<double>(), Array<Long>(values.columns())};
    Long N;
    for (Long g = 1; g <= values.columns(); ++g) {
        pooled.counts(g) = countNonEmpty(values.column(g));
        N += pooled.counts(g);
    }
    pooled.values = Array<double>(N);
    auto next = pooled.values.elements().begin();
    for (Long g = 1; g <= values.columns(); ++g) {
        for (const CellValue& cell : values.column(g)) {
            if (!isEmpty(cell)) {
                *next++ = toDouble(cell);
            }
        }
    }
    return pooled;
}

Grid<double> spreadOverGroups(const Array<double>& pooled, const Array<Long>& counts, Long rows) {
    Grid<double> spread(rows, counts.size());
    auto next = pooled.elements().begin();
    for (Long g = 1; g <= counts.size(); ++g) {
        const auto end = next + toIndex(counts(g));
        std::copy(next, end, spread.column(g).begin());
        next = end;
    }
    return spread;
}

}  // namespace TBVNonPara
