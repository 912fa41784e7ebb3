#include "tbvnonpara/engine/pooled_groups.hpp"

#include <algorithm>

namespace TBVNonPara {

namespace {

/// How many cells of a column hold something.
Long countObservations(const EngineData& data, Long column) {
    if (data.numbers() != nullptr) {
        return data.rows();
    }
    return std::ranges::count_if(data.cells(column), [](const CellValue& cell) { return !isEmpty(cell); });
}

/// Reads what a column's cells hold.
void readObservations(const EngineData& data, Long column, std::span<double> observations) {
    if (data.numbers() != nullptr) {
        return data.read(column, observations);
    }
    auto next = observations.begin();
    for (const CellValue& cell : data.cells(column)) {
        if (!isEmpty(cell)) {
            *next++ = toDouble(cell);
        }
    }
}

}  // namespace

PooledGroups combineSamples(const EngineData& first, const EngineData& second) {
    const Long n1 = countObservations(first, 1);
    const Long n2 = countObservations(second, 1);
    PooledGroups pooled{Array<double>(n1 + n2), {n1, n2}};
    const std::span<double> values = pooled.values.elements();
    const auto split = static_cast<std::size_t>(n1.value());
    // As many cells as there are observations: a blank among them is one of 0, and as many cells at the end
    // are never read.
    first.read(1, values.first(split));
    second.read(1, values.subspan(split));
    return pooled;
}

PooledGroups poolGroups(const EngineData& values) {
    PooledGroups pooled{Array<double>(), Array<Long>(values.columns())};
    Long N;
    for (Long g = 1; g <= values.columns(); ++g) {
        pooled.counts(g) = countObservations(values, g);
        N += pooled.counts(g);
    }
    pooled.values = Array<double>(N);
    std::span<double> rest = pooled.values.elements();
    for (Long g = 1; g <= values.columns(); ++g) {
        const auto n = static_cast<std::size_t>(pooled.counts(g).value());
        readObservations(values, g, rest.first(n));
        rest = rest.subspan(n);
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
