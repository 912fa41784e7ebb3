#pragma once

#include <optional>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/reshaped.hpp"

namespace TBVNonPara::reshaping {

/// A table in long form: each row has a value and names its group; with blocks, what it belongs to. The
/// columns are equally long, row by row.
struct LongTable {
    Column values;
    Column groups;
    std::optional<Column> blocks;
};

/// One column for each group. Raises a Refusal for columns of unequal length, for groups that are not there
/// or too many or too few, for missing values that are not to be left out, for a block with a gap or with two
/// values of a group.
[[nodiscard]] TBVNONPARA_API Reshaped fromLong(LongTable table, const Wishes& wishes);

}  // namespace TBVNonPara::reshaping
