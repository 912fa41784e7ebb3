#pragma once

#include <span>

#include "core/array.hpp"
#include "core/cell_value.hpp"

namespace TBVNonPara {

/// The distinct values of a sequence in order of first appearance, and how often each occurs.
struct Categories {
    Array<CellValue> values;
    Array<Long> counts;
};

/// Two cells are of one category when they are of one kind and equal: numbers as numbers, texts exactly,
/// empty cells among themselves.
[[nodiscard]] Categories findCategories(std::span<const CellValue> cells);

}  // namespace TBVNonPara
