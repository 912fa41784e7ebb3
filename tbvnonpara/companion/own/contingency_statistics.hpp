#pragma once

#include <string>

#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/grid.hpp"

namespace TBVNonPara {

/// Observed counts with their margins and the frequencies expected from them, r x c each.
struct ContingencyTable {
    Grid<double> observed;
    Array<double> rowSums;
    Array<double> columnSums;
    double n = 0;
    Grid<double> expected;
};

/// Reads the counts, leaving out a first row and a first column of labels; an empty cell is 0. Raises
/// tbvNPNoContingencyTable for fewer than two rows or columns of counts and for a table without any
/// observation, InvalidProcedureCall for a negative count, TypeMismatch for a cell that is no number.
[[nodiscard]] ContingencyTable contingencyTable(const ValueGrid& table, bool labels);

/// Empty when at most 20 % of the expected frequencies are below 5 and none is below 1.
[[nodiscard]] std::string warningOn(const Grid<double>& expected);

/// Pearson: the sum of (O - E)^2 / E. A cell with E = 0 contributes 0.
[[nodiscard]] double pearsonChiSquare(const ContingencyTable& table);

/// The log-likelihood ratio 2 sum O ln(O / E), never negative. A cell with O = 0 contributes 0.
[[nodiscard]] double logLikelihoodG(const ContingencyTable& table);

/// Yates, for 2 x 2 tables: n (|ad - bc| - n / 2)^2 / (R1 R2 C1 C2), the difference not below 0; 0 when a
/// margin is 0.
[[nodiscard]] double yatesChiSquare(const ContingencyTable& table);

/// Cochran, in Haber's form, for 2 x 2 tables: n^3 D^2 / (R1 R2 C1 C2). With E the smallest expected
/// frequency, O its count and d = |O - E|, D is the largest multiple of 0.5 below d where O <= 2 E, else
/// d - 0.5, and not below 0; 0 when a margin is 0.
[[nodiscard]] double cochranChiSquare(const ContingencyTable& table);

}  // namespace TBVNonPara
