#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/grid.hpp"

namespace TBVNonPara::calc {

/// A cell in the section of the test that a function of cells gives, too.
struct FigureCell {
    Long row;
    Long column;
    std::string heading;  ///< what the figure is called in the report
    std::string figure;   ///< its name for DETAILS; empty for P of the report, which TEST gives
};

/// The figures of the test in the cells of a report, from left to right and from top to bottom; none where it
/// is no report of this test.
[[nodiscard]] std::vector<FigureCell> figureCells(const ValueGrid& cells, TBVNPMethod method,
                                                  TBVNPTails tails);

}  // namespace TBVNonPara::calc
