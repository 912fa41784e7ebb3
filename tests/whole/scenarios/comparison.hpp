#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tests/whole/scenarios/addresses.hpp"
#include "tests/whole/scenarios/scenario.hpp"

namespace TBVNonPara::Scenarios {

/// What a host makes of a cell that should hold an empty text.
enum class EmptyTexts { Kept, Blank };

/// Equal cells; numbers within a relative 1e-12: fifteen digits are written, and the hosts' distribution
/// functions differ from each other in the last two or three of them.
[[nodiscard]] bool agree(const CellValue& expected, const CellValue& received,
                         EmptyTexts emptyTexts = EmptyTexts::Kept);

/// A report beside the one that is expected.
struct ComparedReport {
    ValueGrid asWritten;                   ///< what was received; cells that agree as they are expected
    std::vector<std::string> differences;  ///< the first cells that differ, a line each
};

/// Compares cell by cell; the top left cell of `place` names the cells in the differences.
[[nodiscard]] ComparedReport compareReports(const ValueGrid& expected, const ValueGrid& received,
                                            const Rectangle& place, EmptyTexts emptyTexts);

/// Both blocks from the first line on in which they differ.
[[nodiscard]] std::vector<std::string> blockDifferences(const Block& expected, const Block& received);

}  // namespace TBVNonPara::Scenarios
