#pragma once

#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tbvnonpara/engine/engine_data.hpp"

namespace TBVNonPara {

/// The observations of several groups, one group behind the other, and how many each group has.
struct PooledGroups {
    Array<double> values;
    Array<Long> counts;
};

/// All non-empty values of column 1 of two samples.
/// The value is read at the running count, not at the row being walked: a blank inside a sample shifts the
/// reading and is itself read as 0. Clients rely on it. Raises TypeMismatch for a cell that is no number.
[[nodiscard]] PooledGroups combineSamples(const EngineData& first, const EngineData& second);

/// The non-empty cells, column by column and from top to bottom; each column is a group. Raises
/// TypeMismatch for a cell that is no number.
[[nodiscard]] PooledGroups poolGroups(const EngineData& values);

/// Pooled numbers with a column for each group and this many rows, each group without gaps from the top; the
/// cells below are 0.
[[nodiscard]] Grid<double> spreadOverGroups(const Array<double>& pooled, const Array<Long>& counts,
                                            Long rows);

}  // namespace TBVNonPara
