#pragma once

#include <span>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// The distinct values of a sequence in order of first appearance, and how often each occurs.
struct Categories {
    Array<CellValue> values;
    Array<Long> counts;
};

/// The cell as a Boolean compares: True as -1, False as 0. Any other cell as it is.
[[nodiscard]] inline CellValue withTruthAsNumber(const CellValue& cell) {
    const auto* truth = std::get_if<bool>(&cell);
    return truth == nullptr ? cell : CellValue(*truth ? -1.0 : 0.0);
}

/// Whether two cells are of one category. The comparison of two variants, but quick for two numbers.
[[nodiscard]] inline bool sameCategory(const CellValue& a, const CellValue& b) {
    const auto* x = std::get_if<double>(&a);
    const auto* y = std::get_if<double>(&b);
    return x != nullptr && y != nullptr ? *x == *y : withTruthAsNumber(a) == withTruthAsNumber(b);
}

/// Two cells are of one category when they are equal: numbers and Booleans as numbers (True is -1, False 0),
/// texts exactly, empty cells among themselves. A category is shown as it is seen first.
[[nodiscard]] TBVNONPARA_API Categories findCategories(std::span<const CellValue> cells);

}  // namespace TBVNonPara
