#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara::Scenarios {

/// One cell of a scenario as it is written there, and where it begins in its line.
struct WrittenCell {
    CellValue value;
    std::size_t position = 0;
};

/// The cells of a line: separated by tabs or by two blanks and more. A number, TRUE, FALSE and an error value
/// such as #N/A are what they look like, `-` is an empty cell, anything else a text. A text in quotation
/// marks is that text whatever it looks like; "" inside it stands for one mark.
[[nodiscard]] std::vector<WrittenCell> readCells(std::string_view line);

/// How a cell is written, so that readCells gives it again; numbers with at most 15 digits.
[[nodiscard]] std::string writeCell(const CellValue& value);

/// The rows of a data block, cells taken in order.
[[nodiscard]] ValueGrid readData(const std::vector<std::string>& lines);

/// The rows of a report: under a line of column letters, each line begins with its row's number, and each
/// cell begins exactly under its column's letter. Raises std::runtime_error where one does not.
[[nodiscard]] ValueGrid readReport(const std::vector<std::string>& lines);

/// The same lines for a block of cells whose top left is at `row`, `column`.
[[nodiscard]] std::vector<std::string> writeReport(const ValueGrid& cells, Index row, Index column);

}  // namespace TBVNonPara::Scenarios
