#pragma once

#include "adapters/calc/functions/data_columns.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara::calc {

/// The alternative that a formula names: "<>", ">" or "<", or a word of the program's, in any case; two tails
/// where it names none. Throws FormulaFailure for anything else.
[[nodiscard]] TBVNPTails tailsInFormula(TBVNPMethod method, const css::uno::Any& alternative);

/// Runs the test of a report on columns that are usable for it.
void analyse(clsNonParaBO& engine, const OfferedTest& test, TBVNPTails tails, const DataColumns& columns);

/// The P that the report shows.
[[nodiscard]] double probabilityInFormula(const OfferedTest& test, TBVNPTails tails,
                                          const DataColumns& columns);

}  // namespace TBVNonPara::calc
