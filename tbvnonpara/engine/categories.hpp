#pragma once

#include <span>

#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// The distinct values of a sequence in order of first appearance, and how often each occurs.
struct Categories {
    Array<CellValue> values;
    Array<Long> counts;
};

/// Whether two cells are of one category. The comparison of two variants, but quick for two numbers.
[[nodiscard]] inline bool sameCategory(const CellValue& a, const CellValue& b) {
    const auto* x = std::get_if<double>(&a);
    const auto* y = std::get_if<double>(&b);
    return x != nullptr && y != nullptr ? *x == *y : a == b;
}

/// Two cells are of one category when they are of one kind and equal: numbers as numbers, texts exactly,
/// empty cells among themselves.
[[nodiscard]] Categories findCategories(std::span<const CellValue> cells);

}  // namespace TBVNonPara
