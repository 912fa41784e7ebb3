#pragma once

#include <com/sun/star/table/XCellRange.hpp>
#include <vector>

#include "adapters/calc/uno.hpp"
#include "tbvnonpara/details/labelled_column.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::calc {

using DataColumns = std::vector<LabelledColumn>;

/// The columns of an argument of a formula, read in one piece: a range, or the block of values that the
/// spreadsheet passes for one. Truth values are numbers, as the spreadsheet has them. Throws FormulaFailure
/// with the first error that stands in the cells.
[[nodiscard]] DataColumns columnsOf(const Reference<css::table::XCellRange>& range);
[[nodiscard]] DataColumns columnsOf(const css::uno::Any& block);

/// What a test computes with. Blanks and texts are passed over: cell by cell in samples and groups, with the
/// whole row in pairs and blocks; in a sequence a text is a category. Throws FormulaFailure where too little
/// is left or the columns are none of the test's.
[[nodiscard]] DataColumns usableColumns(const OfferedTest& test, DataColumns columns);

}  // namespace TBVNonPara::calc
