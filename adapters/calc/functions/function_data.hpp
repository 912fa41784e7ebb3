#pragma once

#include <vector>

#include "adapters/calc/uno.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::calc {

/// The columns of a range, each from top to bottom.
using CellColumns = std::vector<std::vector<CellValue>>;

/// What a formula hands over: the columns of a range or of an array, a single value as one cell. Texts stay
/// texts, "" is blank. The spreadsheet itself refuses ranges with error values.
[[nodiscard]] CellColumns columnsOf(const css::uno::Any& argument);

/// All cells of a range, column by column.
[[nodiscard]] std::vector<CellValue> cellsInOrder(const css::uno::Any& argument);

/// The columns of a test without what it passes over: what is no number, with its whole pair or block where
/// values belong together; in a sequence what is blank. Raises NotComputable where rows that belong together
/// differ in number.
[[nodiscard]] CellColumns usedCells(DataShape shape, CellColumns columns);

/// Why a cell shows an error value instead of a figure.
struct NotComputable {
    CellError shown;
};

}  // namespace TBVNonPara::calc
