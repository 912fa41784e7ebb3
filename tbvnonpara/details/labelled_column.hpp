#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// A column of a range: its label and the cells below.
struct LabelledColumn {
    std::string label;             ///< its header, or "Column B"
    std::vector<CellValue> cells;  ///< from the top, blank ones too
};

/// The number that a cell counts as; none for a blank, a text that is no number, a truth value or an error.
[[nodiscard]] TBVNONPARA_API std::optional<double> numberIn(const CellValue& cell);

/// The numbers of a column in its order; what is no number is left out. O(cells).
[[nodiscard]] TBVNONPARA_API std::vector<double> numbersOf(const LabelledColumn& column);

}  // namespace TBVNonPara
